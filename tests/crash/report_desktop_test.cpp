// The report on a fault as a user meets it, in a program that has the library through the hooks.
#include "crash/fault_protocol.h"
#include "shell/record.h"
#include "support/desktop_fixture.h"
#include "support/input.h"

#include <fstream>

namespace halyard::test {

namespace {

constexpr DWORD ReportLimit = 40000;  // ms: a report reads the debug information of all modules
constexpr DWORD AccessViolation = EXCEPTION_ACCESS_VIOLATION;
constexpr unsigned Digits = 2 * sizeof(void*);
constexpr int LinkId = 1036, TextId = 1023, BoxId = 1034, CloseId = 1;

class CrashTest : public DesktopTest {
protected:
    void Start(const std::string& library) {
        folder = ScratchFolder();
        CopyTo(folder, "tvlhload.exe", "tvlhload.exe");
        CopyTo(folder, library, "tvlHalyd.dll");
        StartLoader();
    }

    // Waits for the dialog, whose title names the program.
    void Fault(FaultKind kind) {
        sample = OpenProgram(BinFolder() + "sample_fault.exe", {}, FaultTitle);
        ASSERT_TRUE(WindowsBecome(0, 1)) << "the library isn't in the sample";
        PostMessageA(sample.window, FaultMessage, kind, 0);
        const auto isShown = [&] {
            dialog = WindowOf(sample.program->Id(), "sample_fault.exe");
            return IsWindowVisible(dialog) != FALSE;
        };
        ASSERT_TRUE(kind == ProgramsOwn || Eventually(isShown, ReportLimit)) << "no dialog";
        text = TextOf(Item(TextId));
    }

    HWND Item(int id) const { return GetDlgItem(dialog, id); }

    void ExpectEnds(DWORD status) const {
        EXPECT_TRUE(sample.program->Ends(WaitLimit));
        EXPECT_EQ(sample.program->ExitStatus(), status);
    }

    void ExpectHas(const std::string& piece) const {
        EXPECT_NE(text.find(piece), text.npos) << piece << " in\n" << text;
    }

    Sample sample;
    HWND dialog = nullptr;
    std::string text;
};

TEST_F(CrashTest, TellsWhatThePlatformSaysAndLeavesTheProgramItsOwnFaults) {
    const struct {
        FaultKind kind;
        DWORD code;
        const char* name;
        const char* function;
    } cases[] = {
        {Deep, AccessViolation, "ACCESS_VIOLATION", "Innermost"},
        {Execute, AccessViolation, "ACCESS_VIOLATION", "instructions"},
        // The debug-help library hangs; no thread can start beside one that holds the loader's lock.
        {SymbolsHang, AccessViolation, "ACCESS_VIOLATION", nullptr},
        {LoaderLocked, AccessViolation, "ACCESS_VIOLATION", nullptr},
        {StackOverflow, static_cast<DWORD>(EXCEPTION_STACK_OVERFLOW), "STACK_OVERFLOW", "Overflow"},
    };
    Start("faulting\\tvlHalyd.dll");
    for (const auto& [kind, code, name, function] : cases) {
        // Wine leaves so little of a 64-bit stack that has run over that its own dispatching doesn't fit in: no filter
        // is asked.
        if (kind == StackOverflow && Digits == 16) continue;
        SCOPED_TRACE(kind);
        ASSERT_NO_FATAL_FAILURE(Fault(kind));
        const std::string head = Format("\r\nException code: %08lX %s\r\nFault address:  ", code, name);
        ExpectHas(head);
        const std::string where = text.substr(text.find(head) + head.size(), Digits), top = "SourceFile\r\n" + where;
        ExpectHas(":" + where + "\r\n");  // of the registers
        EXPECT_EQ(text.find("\r\nModules\r\n") != text.npos, kind != LoaderLocked) << text;
        EXPECT_EQ(text.find("Call stack") != text.npos, function != nullptr) << text;
        const std::size_t walks[] = {text.find(top), text.rfind(top)};
        ASSERT_EQ(walks[0] != walks[1], function != nullptr) << text;
        for (const std::size_t walk : walks) {
            const std::size_t line = walk + top.size();
            EXPECT_TRUE(!function || text.find(function, line) < text.find("\r\n", line)) << text.substr(line, 200);
        }
        if (kind == Deep) {
            std::size_t caller = walks[0];
            for (const char* next : {"Innermost", "FaultDeep", "FaultWithProbe", "FaultForTest"})
                if (caller != text.npos) caller = text.find(next, caller + 1);
            EXPECT_LT(caller, walks[1]) << "callers are missing\n" << text.substr(walks[0], 1500);
            for (const char* line :
                 {"\tLocal 'probe' halyard::test::Probe\r\n", "\t\t first = 11223344\r\n", "\t\t second = 5566\r\n",
                  "\t\t third = 77\r\n", "\tLocal 'text' = \"a text of more than thirty-one \"\r\n",
                  "\tParameter 'kind' = 0\r\n", "'halyard::test::globalProbe' = 1234567\r\n"})
                ExpectHas(line);
            ExpectHas(Format("BX:%0*X\r\n", Digits, HeldByRegister));
            const auto base = reinterpret_cast<ULONG_PTR>(sample.program->Module("tvlHalyd.dll"));
            ExpectHas(Format(" %0*llX  ", Digits, static_cast<unsigned long long>(base)));
        }
        Click(MiddleOf(Item(CloseId)));
        ExpectEnds(code);
    }
    Fault(ProgramsOwn);
    ExpectEnds(OwnFilterStatus);
}

// What the report says is looked at by the test of the tool that names its places.
TEST_F(CrashTest, LeavesAReportOfAStrippedLibrary) {
    Start("faulting\\stripped\\tvlHalyd.dll");
    ASSERT_NO_FATAL_FAILURE(Fault(Deep));
    std::ofstream(BinFolder() + "faulting\\stripped\\report.txt", std::ios::binary) << text;
    PostMessageA(dialog, WM_CLOSE, 0, 0);
    ExpectEnds(AccessViolation);
}

TEST_F(CrashTest, DialogServesMouseAndKeyboard) {
    const std::string mail = "\"" + BinFolder() + "sample_wizard.exe\" \"%1\"";
    RegSetValueA(HKEY_CLASSES_ROOT, "mailto\\shell\\open\\command", REG_SZ, mail.c_str(), 0);
    Start("faulting\\tvlHalyd.dll");
    ASSERT_NO_FATAL_FAILURE(Fault(Deep));
    ASSERT_TRUE(BringToFront(dialog));
    TapKey("Escape");
    const RECT link = PlaceOf(Item(LinkId));
    Click({link.left + 5, link.top + 5});
    EXPECT_TRUE(Eventually([] { return NumberOr(standin::StandInKey, standin::WizardRunsValue, 0) == 1; }))
        << "no mail program";
    const std::string opened = TextOf(standin::StandInKey, standin::WizardCommandLineValue);
    EXPECT_NE(opened.find("mailto:help@tevral.example?subject=Halyard%20Error%20Report"), opened.npos) << opened;
    EXPECT_TRUE(IsWindow(dialog)) << "Esc closed it";

    // Kept out of the program from its next start.
    Click(MiddleOf(Item(BoxId)));
    EXPECT_TRUE(Eventually([&] { return Ask(Item(BoxId), BM_GETCHECK) == BST_CHECKED; }));
    TapKey("Return");
    ExpectEnds(AccessViolation);
    EXPECT_EQ(NumberOr(ProgramKey(BinFolder() + "sample_fault.exe"), "Excluded", 0), 1u);
}

}  // namespace

}  // namespace halyard::test
