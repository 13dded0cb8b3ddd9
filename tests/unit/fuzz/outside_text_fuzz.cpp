// Texts of other programs and of the registry: names of classes, names of the keys of desktops, paths of programs.
#include "desktops/desktop_rules.h"
#include "fuzz_target.h"
#include "hook/class_rules.h"
#include "process/program_flags.h"

namespace {

using halyard::ProgramFlags;

struct Program {
    const char* text;
    bool ProgramFlags::*flag;
};

constexpr Program Programs[] = {{"xsi.exe", &ProgramFlags::xsi},          {"qlplay2.exe", &ProgramFlags::qlplay},
                                {"winproj.exe", &ProgramFlags::winproj},  {"acad.exe", &ProgramFlags::acad},
                                {"corelpp.exe", &ProgramFlags::corelpp},  {"modeler.exe", &ProgramFlags::modeler},
                                {"lightwav.exe", &ProgramFlags::modeler}, {"maya.exe", &ProgramFlags::maya},
                                {"explorer", &ProgramFlags::explorer}};

// Each of them comes unchanged too.
// clang-format off
constexpr std::string_view Seeds[] = {
    "", "Afx:400000:b:10011:6:2d05c1", "Afx:", "Afx:1", "Afx::", "Afx", "afx:1:2", "MyAfx:1", "AfxFrame:1", ":",
    "0", "1", "01", "10", " 1", "+1", "-3", "1a", "0x10", "/", "1073741823", "1073741824", "1073741830", "2147483649",
    "4294967294", "4294967297", "10737418230", "18446744073709551617", "C:\\WINDOWS\\Explorer.EXE", "C:\\CAD\\ACAD.EXE",
    "modeler.exe", "LIGHTWAV.EXE", "lightwave.exe", "Maya.exe", "d\\xsi.exe.d\\a.com", "qlplay2.exe", "qlplay.exe",
    "WINPROJ.EXE", "corelpp.exe", "acad", "@AZ[`az{\x83\xC1"};
// clang-format on

void CheckClassName(std::vector<char> name) {
    const std::string whole = name.data();
    halyard::NormaliseClassName(name.data());
    Require(name.data() == (whole.starts_with("Afx:") ? whole.substr(0, whole.rfind(':')) : whole),
            "generated names and no others are cut at their last colon");
}

void CheckKeyName(const std::vector<char>& name) {
    const unsigned long long number = std::strtoull(name.data(), nullptr, 10);
    const bool plain = number < 0x40000000 && std::to_string(number) == name.data();
    Require(halyard::DesktopIdOfKey(name.data()) == (plain ? number : 0), "plain ids and no other names are taken");
}

void CheckPath(std::vector<char> path) {
    const std::vector<char> before = path;
    halyard::LowerAscii(path.data());
    for (std::size_t at = 0; at < path.size(); ++at) {
        const bool capital = before[at] >= 'A' && before[at] <= 'Z';
        Require(path[at] == before[at] + (capital ? 32 : 0), "capitals of ASCII and nothing else are lowered");
    }
    ProgramFlags expected;
    for (const auto& [text, flag] : Programs)
        if (std::string_view(path.data()).find(text) != std::string_view::npos) expected.*flag = true;
    const ProgramFlags flags = halyard::FlagsOfProgram(path.data());
    for (const auto& [text, flag] : Programs)
        Require(flags.*flag == expected.*flag, text);
}

}  // namespace

constinit const std::span<const std::string_view> fuzzSeeds(Seeds);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::vector<char> text = TextOf(data, size);
    CheckClassName(text);
    CheckKeyName(text);
    CheckPath(text);
    return 0;
}
