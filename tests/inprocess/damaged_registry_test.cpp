// Whatever stands in the registry, it does no harm: a damaged value counts as missing, and nothing beside it is lost.
#include "desktops/desktop_list.h"
#include "process/registry_key.h"
#include "settings_fields.h"
#include "store_fixture.h"

namespace halyard::test {
namespace {

struct Damage {
    const char* what;
    DWORD type;
    Bytes bytes;
};

const Damage NoNumbers[] = {
    {"text", REG_SZ, Bytes("1", 2)},
    {"unclosed text", REG_SZ, "1234"},
    {"bytes of the right size", REG_BINARY, Bytes("\1\0\0\0", 4)},
    {"no type", REG_NONE, Bytes("\1\0\0\0", 4)},
    {"the other byte order", REG_DWORD_BIG_ENDIAN, Bytes("\0\0\0\1", 4)},
    {"a long number", REG_QWORD, Bytes("\1\0\0\0\0\0\0\0", 8)},
    {"nothing", REG_DWORD, ""},
    {"half a number", REG_DWORD, Bytes("\1\0", 2)},
    {"more than a number", REG_DWORD, Bytes("\1\0\0\0\0", 5)},
    {"much more than a number", REG_DWORD, Bytes(5000, '\1')},
};

struct TextCase {
    const char* what;
    DWORD type;
    Bytes bytes;
    std::string expected;
};

const TextCase Texts[] = {
    {"text", REG_SZ, Bytes("name", 5), "name"},
    {"text with parts to expand", REG_EXPAND_SZ, Bytes("%name%", 7), "%name%"},
    {"unclosed", REG_SZ, "name", "name"},
    {"more behind the end", REG_SZ, Bytes("name\0more", 10), "name"},
    {"empty", REG_SZ, Bytes("", 1), ""},
    {"no bytes", REG_SZ, "", ""},
    {"the longest", REG_SZ, Bytes(259, 'n') + '\0', std::string(259, 'n')},
    {"the longest, unclosed", REG_SZ, Bytes(260, 'n'), std::string(260, 'n')},
    {"too long by one", REG_SZ, Bytes(260, 'n') + '\0', ""},
    {"too long", REG_SZ, Bytes(300, 'n') + '\0', ""},
    {"a number", REG_DWORD, Bytes("abc", 4), ""},
    {"bytes", REG_BINARY, Bytes("name", 5), ""},
    {"several texts", REG_MULTI_SZ, Bytes("name\0", 6), ""},
    {"no type", REG_NONE, Bytes("name", 5), ""},
};

class DamagedRegistryTest : public StoreTest {
protected:
    // The value as it is damaged, with `path` and `name` put back afterwards.
    template <typename Check>
    static void WithEachDamage(const std::string& path, const char* name, DWORD good, Check check) {
        for (const Damage& damage : NoNumbers) {
            SCOPED_TRACE(std::string(name) + ": " + damage.what);
            Store(HKEY_CURRENT_USER, path, name, damage.type, damage.bytes);
            check();
        }
        StoreDword(HKEY_CURRENT_USER, path, name, good);
    }
};

TEST_F(DamagedRegistryTest, ASettingFallsToItsDefaultAlone) {
    for (const Field& field : Fields)
        StoreDword(HKEY_CURRENT_USER, ProductPath(), field.name, 7);
    for (const Field& damaged : Fields) {
        WithEachDamage(ProductPath(), damaged.name, 7, [&] {
            settings = Settings();
            settings.Load();
            for (const Field& field : Fields)
                EXPECT_EQ(&field == &damaged ? field.missing : field.AsRead(7), field.get(settings)) << field.name;
        });
    }
}

TEST_F(DamagedRegistryTest, AnIndexedValueFallsToTheCallersDefault) {
    WithEachDamage(ProductPath(), "Width_2", 5, [] { EXPECT_EQ(44u, ReadIndexedValue(2, "Width", 44)); });
    EXPECT_EQ(5u, ReadIndexedValue(2, "Width", 44));
}

TEST_F(DamagedRegistryTest, TheChoiceOfHiveFallsToTheMachine) {
    for (const Damage& damage : NoNumbers) {
        Store(HKEY_LOCAL_MACHINE, ProductPath(), "Admin", damage.type, damage.bytes);
        ChooseHive();
        EXPECT_EQ(HKEY_LOCAL_MACHINE, ChosenHive()) << damage.what;
        StoreDword(HKEY_LOCAL_MACHINE, ProductPath(), "Admin", 0);
        ChooseHive();
        EXPECT_EQ(HKEY_CURRENT_USER, ChosenHive());
    }
}

TEST_F(DamagedRegistryTest, AValueOfTheProgramFallsToItsDefaultAlone) {
    const auto reload = [] {
        settings = Settings();
        settings.Load();
    };
    for (const char* name : {"Autodock", "WindowMem", "Excluded"})
        StoreDword(HKEY_CURRENT_USER, AppPath(), name, 1);
    WithEachDamage(AppPath(), "Autodock", 1, [&] {
        reload();
        EXPECT_FALSE(settings.AppAutodockSet());
        EXPECT_TRUE(settings.AppWindowMem());
        EXPECT_TRUE(IsExcluded());
    });
    WithEachDamage(AppPath(), "WindowMem", 1, [&] {
        reload();
        EXPECT_TRUE(settings.AppAutodockSet() && settings.AppAutodock());
        EXPECT_FALSE(settings.AppWindowMem());
    });
    WithEachDamage(AppPath(), "Excluded", 1, [] { EXPECT_FALSE(IsExcluded()); });
    EXPECT_TRUE(IsExcluded());
}

class DamagedDesktopTest : public DamagedRegistryTest {
protected:
    DamagedDesktopTest() {
        for (const char* id : {"1", "2"}) {
            path = ProductPath("Desktops\\") + id;
            Store(HKEY_CURRENT_USER, path, "", REG_SZ, Bytes("name", 5));
            Store(HKEY_CURRENT_USER, path, "Wallpaper", REG_SZ, Bytes("w.bmp", 6));
            StoreDword(HKEY_CURRENT_USER, path, "WallpaperStyle", 2);
            StoreDword(HKEY_CURRENT_USER, path, "Colour", 0x112233);
        }
    }

    // Both desktops are there, the second one with these values.
    static void ExpectSecond(const std::string& name, const std::string& wallpaper, DWORD style, COLORREF colour) {
        DesktopList list;
        list.Load();
        ASSERT_EQ(3u, list.Count());
        struct {
            DesktopId id;
            std::string name;
            std::string wallpaper;
            DWORD style;
            COLORREF colour;
        } const expected[] = {{1, "name", "w.bmp", 2, 0x112233}, {2, name, wallpaper, style, colour}};
        for (const auto& desktop : expected) {
            const Desktop& read = *list.Find(desktop.id);
            EXPECT_EQ(desktop.name, read.name.Text());
            EXPECT_EQ(desktop.wallpaper, read.wallpaper.Text());
            EXPECT_EQ(desktop.style, read.wallpaperStyle);
            EXPECT_EQ(desktop.colour, read.colour);
        }
    }

    std::string path;  // of the second
};

TEST_F(DamagedDesktopTest, ANumberFallsToItsDefaultAlone) {
    WithEachDamage(path, "WallpaperStyle", 2, [] { ExpectSecond("name", "w.bmp", 0, 0x112233); });
    WithEachDamage(path, "Colour", 0x112233, [] { ExpectSecond("name", "w.bmp", 2, GetSysColor(COLOR_BACKGROUND)); });
    ExpectSecond("name", "w.bmp", 2, 0x112233);
}

TEST_F(DamagedDesktopTest, ATextIsReadAsFarAsItIsOne) {
    for (const TextCase& text : Texts) {
        SCOPED_TRACE(text.what);
        Store(HKEY_CURRENT_USER, path, "", text.type, text.bytes);
        ExpectSecond(text.expected, "w.bmp", 2, 0x112233);
        Store(HKEY_CURRENT_USER, path, "", REG_SZ, Bytes("name", 5));
        Store(HKEY_CURRENT_USER, path, "Wallpaper", text.type, text.bytes);
        ExpectSecond("name", text.expected, 2, 0x112233);
        Store(HKEY_CURRENT_USER, path, "Wallpaper", REG_SZ, Bytes("w.bmp", 6));
    }
}

TEST_F(DamagedDesktopTest, AKeyThatIsNoNumberAboveZeroIsPassedOver) {
    const std::string names[] = {"x",
                                 "-5",
                                 "0",
                                 "007",
                                 "1x",
                                 " 3",
                                 "+3",
                                 "3 ",
                                 "99999999999",
                                 "4294967295",
                                 "4294967294",
                                 "2147483648",
                                 "1073741824",
                                 std::string(200, '9'),
                                 std::string(200, 'k')};
    for (const std::string& name : names)
        Store(HKEY_CURRENT_USER, ProductPath("Desktops\\" + name), "", REG_SZ, Bytes("stray", 6));
    MakeKey(HKEY_CURRENT_USER, ProductPath("Desktops\\1073741823"));
    DesktopList list;
    list.Load();
    ASSERT_EQ(4u, list.Count());
    EXPECT_STREQ("Default", list.NameAt(0).Text());
    EXPECT_STREQ("name", list.NameAt(1).Text());
    EXPECT_STREQ("name", list.NameAt(2).Text());
    EXPECT_EQ(1073741823u, list.IdAt(3));
}

TEST_F(DamagedRegistryTest, AKeyReadsWhatItIsAskedForAndTouchesNothingElse) {
    RegistryKey key;
    DWORD number = 77;
    EXPECT_EQ(0, key.Close()) << "nothing is open";
    EXPECT_NE(ERROR_SUCCESS, key.ReadDword("n", number)) << "nothing is open";
    ASSERT_TRUE(key.Create(HKEY_CURRENT_USER, ProductPath().c_str()));
    EXPECT_EQ(ERROR_FILE_NOT_FOUND, key.ReadDword("n", number));
    for (const Damage& damage : NoNumbers) {
        Store(HKEY_CURRENT_USER, ProductPath(), "n", damage.type, damage.bytes);
        EXPECT_NE(ERROR_SUCCESS, key.ReadDword("n", number)) << damage.what;
        EXPECT_EQ(77u, number) << damage.what;
        EXPECT_EQ(5u, key.ReadDwordOr("n", 5)) << damage.what;
    }
    for (const TextCase& text : Texts) {
        Store(HKEY_CURRENT_USER, ProductPath(), "t", text.type, text.bytes);
        bool read = false;
        const TextBuffer seen = key.ReadString("t", &read);
        EXPECT_EQ(text.expected, seen.Text()) << text.what;
        EXPECT_EQ(read ? StoredTextRoom : 0u, seen.Length()) << text.what;
    }
    char bytes[8] = {};
    DWORD size = sizeof(bytes);
    Store(HKEY_CURRENT_USER, ProductPath(), "b", REG_BINARY, Bytes("\1\2\3", 3));
    EXPECT_EQ(ERROR_SUCCESS, key.ReadBytes("b", bytes, size));
    EXPECT_EQ(3u, size);
    EXPECT_EQ(3, bytes[2]);
    Store(HKEY_CURRENT_USER, ProductPath(), "b", REG_BINARY, Bytes(9, '\1'));
    EXPECT_NE(ERROR_SUCCESS, key.ReadBytes("b", bytes, size = sizeof(bytes)));
    Store(HKEY_CURRENT_USER, ProductPath(), "b", REG_SZ, Bytes("abc", 4));
    EXPECT_NE(ERROR_SUCCESS, key.ReadBytes("b", bytes, size = sizeof(bytes)));

    EXPECT_FALSE(key.Open(HKEY_CURRENT_USER, "Software\\Tevral, Inc.\\Nothing", KEY_READ));
    EXPECT_FALSE(key) << "what it held is closed";
    EXPECT_EQ(0, key.Close());
}

}  // namespace
}  // namespace halyard::test
