// The list of desktops and its storage.
#include "desktops/desktop_list.h"
#include "support/store_fixture.h"

namespace halyard::test {
namespace {

// "id NAME|WALLPAPER style colour" of one desktop.
std::string Line(const Desktop& desktop) {
    char line[600];
    wsprintfA(line, "%u %s|%s %u %u", desktop.id, desktop.name.Text(), desktop.wallpaper.Text(),
              static_cast<unsigned>(desktop.wallpaperStyle), static_cast<unsigned>(desktop.colour));
    return line;
}

std::string Ids(DesktopList& list) {
    std::string ids;
    for (unsigned index = 0; index < list.Count(); ++index)
        ids += (index ? " " : "") + std::to_string(list.IdAt(index));
    return ids;
}

const std::string AllStored = std::string(published::ProductKey) + "\\Desktops";

std::string Stored(const std::string& id) {
    return AllStored + "\\" + id;
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

TEST_F(DesktopListTest, ComesBackAsItWasSavedInTheChosenHive) {
    UseMachineHive();
    list.Find(0)->wallpaper = "C:\\seen.bmp";
    list.Add("Mail", 1);
    list.Add(nullptr, 10);
    Desktop& mail = *list.Find(1);
    mail.name = "\u041F\u043E\u0447\u0442\u0430";
    mail.wallpaper = "C:\\pictures\\\u6D77.bmp";
    mail.wallpaperStyle = 2;
    mail.colour = 0x123456;
    // What has gone from the list, and what never belonged there.
    MakeKey(Stored("5"), HKEY_LOCAL_MACHINE);
    MakeKey(Stored("stray"), HKEY_LOCAL_MACHINE);
    WriteNumber(AllStored, "value", 1, HKEY_LOCAL_MACHINE);
    list.Save();
    EXPECT_EQ((Names{"10\\", "1\\"}), NamesIn(AllStored, HKEY_LOCAL_MACHINE));
    for (const DesktopId id : {1u, 10u})
        EXPECT_EQ(Line(*list.Find(id)), LineAfterLoad(id));
    list.Add("unsaved", 3);
    list.Load();
    EXPECT_EQ("0 1 10", Ids(list));
    EXPECT_STREQ("C:\\seen.bmp", list.Find(0)->wallpaper.Text()) << "only in memory";
}

TEST_F(DesktopListTest, TakesDefaultsForDamagedValues) {
    const std::string path = Stored("2");
    const std::string plain = std::to_string(GetSysColor(COLOR_BACKGROUND));
    const struct {
        const char* value;
        DWORD type;
        std::string bytes;
        std::string expected;
    } cases[] = {
        {"WallpaperStyle", REG_SZ, std::string("2", 2), "2 name|w.bmp 0 7"},
        {"Colour", REG_BINARY, std::string("\7\0\0\0", 4), "2 name|w.bmp 2 " + plain},
        {"", REG_EXPAND_SZ, std::string("%name%", 7), "2 %name%|w.bmp 2 7"},
        {"", REG_SZ, std::string("name\0more", 10), "2 name|w.bmp 2 7"},
        {"Wallpaper", REG_SZ, std::string(260, 'n'), "2 name|" + std::string(260, 'n') + " 2 7"},
        {"Wallpaper", REG_SZ, std::string(260, 'n') + '\0', "2 name| 2 7"},
        {"Wallpaper", REG_DWORD, std::string("abc", 4), "2 name| 2 7"},
    };
    for (const auto& test : cases) {
        Store(path, "", REG_SZ, std::string("name", 5));
        Store(path, "Wallpaper", REG_SZ, std::string("w.bmp", 6));
        WriteNumber(path, "WallpaperStyle", 2);
        WriteNumber(path, "Colour", 7);
        Store(path, test.value, test.type, test.bytes);
        EXPECT_EQ(test.expected, LineAfterLoad(2)) << test.value << " " << test.bytes;
    }
}

TEST_F(DesktopListTest, EndsWhereNobodyMadeItByHand) {
    for (unsigned id = 1; id <= MaxDesktops; ++id)
        MakeKey(Stored(std::to_string(id)));
    list.Load();
    EXPECT_EQ(MaxDesktops, list.Count());
}

}  // namespace
}  // namespace halyard::test
