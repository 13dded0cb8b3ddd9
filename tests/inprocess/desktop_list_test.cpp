// The list of desktops and its storage.
#include "desktops/desktop_list.h"
#include "process/registry_key.h"
#include "store_fixture.h"

namespace halyard::test {
namespace {

using Ids = std::vector<DesktopId>;

Ids IdsOf(DesktopList& list) {
    Ids ids;
    for (unsigned index = 0; index < list.Count(); ++index)
        ids.push_back(list.IdAt(index));
    return ids;
}

std::string Stored(const char* id) {
    return ProductPath("Desktops\\") + id;
}

class DesktopListTest : public StoreTest {
protected:
    DesktopListTest() { list.Load(); }

    DesktopList list;
    const COLORREF background = GetSysColor(COLOR_BACKGROUND);
};

TEST_F(DesktopListTest, BeginsWithTheDefaultDesktopAndMakesItsKey) {
    EXPECT_TRUE(KeyExists(HKEY_CURRENT_USER, ProductPath("Desktops")));
    EXPECT_EQ(Ids{0}, IdsOf(list));
    EXPECT_STREQ("Default", list.NameAt(0).Text());
    const Desktop& standard = *list.Find(0);
    EXPECT_TRUE(standard.wallpaper.IsEmpty());
    EXPECT_EQ(0u, standard.wallpaperStyle);
    EXPECT_EQ(background, standard.colour);
}

TEST_F(DesktopListTest, IsEmptyBeforeItIsRead) {
    DesktopList empty;
    EXPECT_EQ(0u, empty.Count());
    EXPECT_EQ(nullptr, empty.Find(0));
    EXPECT_EQ(1u, empty.NextFreeId());
    EXPECT_EQ(0u, empty.IndexOf(0));
}

TEST_F(DesktopListTest, KeepsTheOrderOfIdsAndGivesTheLowestFreeOne) {
    EXPECT_EQ(7u, list.Add("seven", 7));
    EXPECT_EQ(1u, list.Add("one", UnsavedDesktopId));
    EXPECT_EQ(2u, list.Add(nullptr, UnsavedDesktopId));
    EXPECT_EQ(3u, list.Add("three", UnsavedDesktopId));
    EXPECT_EQ((Ids{0, 1, 2, 3, 7}), IdsOf(list));
    EXPECT_EQ(4u, list.IndexOf(7));
    EXPECT_EQ(5u, list.IndexOf(4));
    for (const unsigned past : {5u, 6u, 0xFFFFFFFFu}) {
        EXPECT_EQ(0u, list.IdAt(past));
        EXPECT_STREQ("", list.NameAt(past).Text());
    }
    EXPECT_STREQ("", list.NameAt(2).Text());
    EXPECT_EQ(background, list.Find(2)->colour);

    list.Remove(2);
    EXPECT_FALSE(list.Has(2));
    EXPECT_EQ((Ids{0, 1, 3, 7}), IdsOf(list));
    EXPECT_EQ(2u, list.NextFreeId());
    EXPECT_EQ(2u, list.Add("two", UnsavedDesktopId));
    EXPECT_EQ(2u, list.Add("two again", 2)) << "an id that is in use";
    EXPECT_EQ((Ids{0, 1, 2, 3, 7}), IdsOf(list));
    EXPECT_STREQ("two", list.NameAt(2).Text());
}

TEST_F(DesktopListTest, LeavesTheDefaultDesktopAndUnknownOnesAlone) {
    list.Add("one", 1);
    for (const DesktopId id : {0u, 2u, AllDesktopsId, UnsavedDesktopId}) {
        list.Remove(id);
        list.Rename(id, "other");
    }
    EXPECT_EQ((Ids{0, 1}), IdsOf(list));
    EXPECT_STREQ("Default", list.NameAt(0).Text());
    EXPECT_STREQ("one", list.NameAt(1).Text());
    list.Rename(1, "uno");
    EXPECT_STREQ("uno", list.NameAt(1).Text());
    list.Rename(1, nullptr);
    EXPECT_STREQ("", list.NameAt(1).Text());
    EXPECT_EQ(Names{}, Subkeys(HKEY_CURRENT_USER, ProductPath("Desktops"))) << "nothing of that is stored";
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
        StoreDword(hive, ProductPath("Desktops"), "", 1);
        list.Save();
        Names keys = Subkeys(hive, ProductPath("Desktops"));
        std::sort(keys.begin(), keys.end());
        EXPECT_EQ((Names{"1", "10", "2"}), keys);
        EXPECT_EQ(Names{}, ValueNames(hive, ProductPath("Desktops")));
        EXPECT_EQ(Bytes("Mail", 5), StoredText(hive, Stored("1"), ""));
        EXPECT_EQ(Bytes("", 1), StoredText(hive, Stored("10"), ""));
        EXPECT_EQ(Bytes("", 1), StoredText(hive, Stored("10"), "Wallpaper"));
        EXPECT_EQ(2u, StoredDword(hive, Stored("1"), "WallpaperStyle"));
        EXPECT_EQ(0x123456u, StoredDword(hive, Stored("1"), "Colour"));

        DesktopList other;
        other.Load();
        EXPECT_EQ((Ids{0, 1, 2, 10}), IdsOf(other));
        EXPECT_EQ(longName, other.NameAt(2).Text());
        EXPECT_STREQ("C:\\pictures\\m\xE4r.bmp", other.Find(1)->wallpaper.Text());
        EXPECT_EQ(2u, other.Find(1)->wallpaperStyle);
        EXPECT_EQ(0x123456u, other.Find(1)->colour);
    }
}

TEST_F(DesktopListTest, ReadsAnewAllButTheDefaultDesktop) {
    list.Find(0)->wallpaper = "C:\\seen.bmp";
    list.Find(0)->colour = 0x00FF00;
    list.Add("gone", 1);
    list.Add("changed", 2);
    Store(HKEY_CURRENT_USER, Stored("2"), "", REG_SZ, Bytes("new", 4));
    MakeKey(HKEY_CURRENT_USER, Stored("3"));
    list.Load();
    EXPECT_EQ((Ids{0, 2, 3}), IdsOf(list));
    EXPECT_STREQ("C:\\seen.bmp", list.Find(0)->wallpaper.Text());
    EXPECT_EQ(0x00FF00u, list.Find(0)->colour);
    EXPECT_STREQ("new", list.NameAt(1).Text());
    // A key without values.
    EXPECT_STREQ("", list.NameAt(2).Text());
    EXPECT_TRUE(list.Find(3)->wallpaper.IsEmpty());
    EXPECT_EQ(0u, list.Find(3)->wallpaperStyle);
    EXPECT_EQ(background, list.Find(3)->colour);
}

TEST_F(DesktopListTest, WritesOneDesktopButNeverTheDefaultOne) {
    RegistryKey desktops;
    OpenDesktopsKey(desktops);
    list.Add("four", 4);
    list.Add("five", 5);
    DesktopList::SaveDesktop(*list.Find(4), desktops);
    DesktopList::SaveDesktop(*list.Find(0), desktops);
    EXPECT_EQ(Names{"4"}, Subkeys(HKEY_CURRENT_USER, ProductPath("Desktops")));
    EXPECT_EQ((Names{"", "Colour", "Wallpaper", "WallpaperStyle"}), ValueNames(HKEY_CURRENT_USER, Stored("4")));
    list.Rename(4, "vier");
    DesktopList::SaveDesktop(*list.Find(4), desktops);
    EXPECT_EQ(Bytes("vier", 5), StoredText(HKEY_CURRENT_USER, Stored("4"), ""));
}

TEST_F(DesktopListTest, IsTheDefaultDesktopAloneWhereItsKeyCannotBeHad) {
    UseMachineHive();
    MakeKey(HKEY_LOCAL_MACHINE, Stored("1"));
    list.Load();
    EXPECT_EQ((Ids{0, 1}), IdsOf(list));
    Restrict(HKEY_LOCAL_MACHINE, ProductPath("Desktops"), KEY_READ);
    list.Load();
    EXPECT_EQ(Ids{0}, IdsOf(list));
    list.Add("two", 2);
    list.Save();
    EXPECT_EQ(Names{"1"}, Subkeys(HKEY_LOCAL_MACHINE, ProductPath("Desktops")));
}

TEST_F(DesktopListTest, IsReadUpToTheFirstDesktopThatCannotBeOpened) {
    for (const char* id : {"1", "2", "3"})
        MakeKey(HKEY_CURRENT_USER, Stored(id));
    Restrict(HKEY_CURRENT_USER, Stored("2"), KEY_READ);
    list.Load();
    EXPECT_EQ((Ids{0, 1}), IdsOf(list));
}

TEST_F(DesktopListTest, IsWrittenThoughAnOldKeyCannotBeDeleted) {
    MakeKey(HKEY_CURRENT_USER, Stored("1\\below"));
    list.Add("two", 2);
    list.Save();
    EXPECT_EQ((Names{"1", "2"}), Subkeys(HKEY_CURRENT_USER, ProductPath("Desktops")));
}

}  // namespace
}  // namespace halyard::test
