#include "process/program_flags.h"

#include <cstring>

namespace halyard {

namespace {

struct ProgramTest {
    const char* text;
    bool ProgramFlags::*flag;
};

constexpr ProgramTest Tests[] = {
    {"xsi.exe", &ProgramFlags::xsi},          {"qlplay2.exe", &ProgramFlags::qlplay},
    {"winproj.exe", &ProgramFlags::winproj},  {"acad.exe", &ProgramFlags::acad},
    {"corelpp.exe", &ProgramFlags::corelpp},  {"modeler.exe", &ProgramFlags::modeler},
    {"lightwav.exe", &ProgramFlags::modeler}, {"maya.exe", &ProgramFlags::maya},
    {"explorer", &ProgramFlags::explorer},
};

}  // namespace

ProgramFlags FlagsOfProgram(const char* loweredPath) noexcept {
    ProgramFlags flags;
    for (const ProgramTest& test : Tests)
        if (std::strstr(loweredPath, test.text)) flags.*test.flag = true;
    return flags;
}

void LowerAscii(char* text) noexcept {
    for (; *text; ++text)
        if (*text >= 'A' && *text <= 'Z') *text = static_cast<char>(*text - 'A' + 'a');
}

}  // namespace halyard
