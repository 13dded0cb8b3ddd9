// The list of desktops and its storage.
#include "desktops/desktop_list.h"
#include "support/damaged_values.h"
#include "support/store_fixture.h"

namespace halyard::test {
namespace {

// "id NAME|WALLPAPER style colour" of one desktop.
std::string Line(const Desktop& desktop) {
    char line[600];
    wsprintfA(line, "%u %s|%s %u %06X", desktop.id, desktop.name.Text(), desktop.wallpaper.Text(),
              static_cast<unsigned>(desktop.wallpaperStyle), static_cast<unsigned>(desktop.colour));
    return line;
}

std::string Ids(DesktopList& list) {
    std::string ids;
    for (unsigned index = 0; index < list.Count(); ++index)
        ids += (index ? " " : "") + std::to_string(list.IdAt(index));
    return ids;
}

std::string Stored(const std::string& id) {
    return ProductPath("Desktops\\") + id;
}

class DesktopListTest : public StoreTest {
protected:
    DesktopListTest() { list.Load(); }

    static std::string LineAfterLoad(DesktopId id) {
        DesktopList read;
        read.Load();
        return read.Has(id) ? Line(*read.Find(id)) : "missing";
    }

    DesktopList list;
};

TEST_F(DesktopListTest, KeepsTheOrderOfIdsAndGivesTheLowestFreeOne) {
    list.Add("seven", 7);
    EXPECT_EQ(1u, list.Add("one", UnsavedDesktopId));
    EXPECT_EQ(2u, list.Add(nullptr, UnsavedDesktopId));
    list.Remove(1);
    EXPECT_EQ(1u, list.Add("one", UnsavedDesktopId));
    EXPECT_EQ(1u, list.Add("one again", 1)) << "an id that is in use";
    for (const DesktopId id : {0u, 5u, AllDesktopsId, UnsavedDesktopId}) {
        list.Remove(id);
        list.Rename(id, "other");
    }
    EXPECT_EQ("0 1 2 7", Ids(list));
    EXPECT_EQ("Default one", std::string(list.NameAt(0).Text()) + " " + list.NameAt(1).Text());
}

TEST_F(DesktopListTest, ComesBackAsItWasSaved) {
    for (const HKEY hive : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
        if (hive == HKEY_LOCAL_MACHINE) UseMachineHive();
        const std::string longName(256, 'n');
        list.Load();
        list.Add("Mail", 1);
        list.Add(longName.c_str(), 2);
        list.Add(nullptr, 10);
        Desktop& mail = *list.Find(1);
        mail.wallpaper = "C:\\pictures\\m\xE4r.bmp";
        mail.wallpaperStyle = 2;
        mail.colour = 0x123456;
        // What has gone from the list, and what never belonged there.
        MakeKey(hive, Stored("5"));
        MakeKey(hive, Stored("stray"));
        StoreDword(hive, ProductPath("Desktops"), "value", 1);
        list.Save();
        EXPECT_EQ((Names{"1", "10", "2"}), Subkeys(hive, ProductPath("Desktops")));
        EXPECT_EQ(Names{}, ValueNames(hive, ProductPath("Desktops")));
        EXPECT_EQ(Bytes("Mail", 5), StoredText(hive, Stored("1"), ""));
        EXPECT_EQ(Bytes("", 1), StoredText(hive, Stored("10"), "Wallpaper"));
        EXPECT_EQ(2u, StoredDword(hive, Stored("1"), "WallpaperStyle"));
        EXPECT_EQ(0x123456u, StoredDword(hive, Stored("1"), "Colour"));
        for (const DesktopId id : {1u, 2u, 10u})
            EXPECT_EQ(Line(*list.Find(id)), LineAfterLoad(id));
    }
}

TEST_F(DesktopListTest, ReadsAnewAllButTheDefaultDesktop) {
    list.Find(0)->wallpaper = "C:\\seen.bmp";
    list.Find(0)->colour = 0x00FF00;
    list.Add("gone", 1);
    list.Add("changed", 2);
    Store(HKEY_CURRENT_USER, Stored("2"), "", REG_SZ, Bytes("new", 4));
    list.Load();
    EXPECT_EQ("0 2", Ids(list));
    EXPECT_EQ("0 Default|C:\\seen.bmp 0 00FF00", Line(*list.Find(0)));
    EXPECT_STREQ("new", list.NameAt(1).Text());
    EXPECT_EQ(GetSysColor(COLOR_BACKGROUND), list.Find(2)->colour);
}

TEST_F(DesktopListTest, MakesDoWithKeysThatCannotBeHad) {
    for (const char* id : {"1\\below", "2", "3"})
        MakeKey(HKEY_CURRENT_USER, Stored(id));
    Restrict(HKEY_CURRENT_USER, Stored("2"));
    list.Load();
    EXPECT_EQ("0 1", Ids(list)) << "up to the first that cannot be opened";
    list.Remove(1);
    list.Add("three", 3);
    list.Save();
    EXPECT_EQ(Bytes("three", 6), StoredText(HKEY_CURRENT_USER, Stored("3"), "")) << "though old keys stay";
    UseMachineHive();
    MakeKey(HKEY_LOCAL_MACHINE, Stored("1"));
    Restrict(HKEY_LOCAL_MACHINE, ProductPath("Desktops"));
    list.Load();
    EXPECT_EQ("0", Ids(list));
    list.Add("two", 2);
    list.Save();
    EXPECT_EQ(Names{"1"}, Subkeys(HKEY_LOCAL_MACHINE, ProductPath("Desktops")));
}

struct TextCase {
    const char* what;
    DWORD type;
    Bytes bytes;
    std::string expected;
};

const TextCase Texts[] = {
    {"text with parts to expand", REG_EXPAND_SZ, Bytes("%name%", 7), "%name%"},
    {"unclosed", REG_SZ, "name", "name"},
    {"more behind the end", REG_SZ, Bytes("name\0more", 10), "name"},
    {"no bytes", REG_SZ, "", ""},
    {"the longest", REG_SZ, Bytes(259, 'n') + '\0', std::string(259, 'n')},
    {"the longest, unclosed", REG_SZ, Bytes(260, 'n'), std::string(260, 'n')},
    {"too long by one", REG_SZ, Bytes(260, 'n') + '\0', ""},
    {"a number", REG_DWORD, Bytes("abc", 4), ""},
    {"bytes", REG_BINARY, Bytes("name", 5), ""},
    {"several texts", REG_MULTI_SZ, Bytes("name\0", 6), ""},
    {"no type", REG_NONE, Bytes("name", 5), ""},
};

TEST_F(DesktopListTest, ReadsDamagedValuesAsFarAsTheyGo) {
    const std::string path = Stored("2");
    Store(HKEY_CURRENT_USER, path, "", REG_SZ, Bytes("name", 5));
    Store(HKEY_CURRENT_USER, path, "Wallpaper", REG_SZ, Bytes("w.bmp", 6));
    StoreDword(HKEY_CURRENT_USER, path, "WallpaperStyle", 2);
    StoreDword(HKEY_CURRENT_USER, path, "Colour", 0x112233);
    WithEachDamage(path, "WallpaperStyle", 2, [] { EXPECT_EQ("2 name|w.bmp 0 112233", LineAfterLoad(2)); });
    char plain[40];
    wsprintfA(plain, "2 name|w.bmp 2 %06X", static_cast<unsigned>(GetSysColor(COLOR_BACKGROUND)));
    WithEachDamage(path, "Colour", 0x112233, [&] { EXPECT_EQ(plain, LineAfterLoad(2)); });
    for (const TextCase& text : Texts) {
        SCOPED_TRACE(text.what);
        Store(HKEY_CURRENT_USER, path, "", text.type, text.bytes);
        EXPECT_EQ("2 " + text.expected + "|w.bmp 2 112233", LineAfterLoad(2));
        Store(HKEY_CURRENT_USER, path, "", REG_SZ, Bytes("name", 5));
        Store(HKEY_CURRENT_USER, path, "Wallpaper", text.type, text.bytes);
        EXPECT_EQ("2 name|" + text.expected + " 2 112233", LineAfterLoad(2));
        Store(HKEY_CURRENT_USER, path, "Wallpaper", REG_SZ, Bytes("w.bmp", 6));
    }
}

TEST_F(DesktopListTest, PassesKeysOverThatAreNoNumberAboveZero) {
    for (const std::string& name :
         {std::string("x"), std::string("-5"), std::string("0"), std::string("007"), std::string("1x"),
          std::string(" 3"), std::string("+3"), std::string("99999999999"), std::string("4294967295"),
          std::string("4294967294"), std::string("1073741824"), std::string(200, '9'), std::string(200, 'k')})
        MakeKey(HKEY_CURRENT_USER, Stored(name));
    MakeKey(HKEY_CURRENT_USER, Stored("1073741823"));
    list.Load();
    EXPECT_EQ("0 1073741823", Ids(list));
}

}  // namespace
}  // namespace halyard::test
