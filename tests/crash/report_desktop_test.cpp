// The report on a fault as a user meets it, in a program that has the library through the hooks.
#include "crash/fault_protocol.h"
#include "shell/record.h"
#include "support/desktop_fixture.h"
#include "support/input.h"

#include <cstdio>
#include <fstream>

namespace halyard::test {

namespace {

constexpr DWORD ReportLimit = 40000;  // ms: a report reads the debug information of all modules
// Wine leaves so little of a 64-bit stack that has run over that its own dispatching doesn't fit in: no filter is
// asked.
constexpr bool ReportsOverflow = sizeof(void*) == 4;
constexpr int LinkId = 1036, TextId = 1023, BoxId = 1034, CloseId = 1;

std::string Address(ULONG_PTR value) {
    return Format("%0*llX", static_cast<int>(sizeof(void*) * 2), static_cast<unsigned long long>(value));
}

class CrashTest : public DesktopTest {
protected:
    void SetUp() override {
        DesktopTest::SetUp();
        mapping = CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, sizeof(FaultSeen), SeenName);
        seen = static_cast<FaultSeen*>(MapViewOfFile(mapping, FILE_MAP_WRITE, 0, 0, sizeof(FaultSeen)));
        ASSERT_NE(seen, nullptr);
        folder = ScratchFolder();
        CopyTo(folder, "tvlhload.exe", "tvlhload.exe");
        CopyTo(folder, Library(), "tvlHalyd.dll");
        StartLoader();
    }

    void TearDown() override {
        DesktopTest::TearDown();
        UnmapViewOfFile(seen);
        CloseHandle(mapping);
    }

    virtual const char* Library() const { return "faulting\\tvlHalyd.dll"; }

    void OpenFaulting() {
        *seen = {};
        sample = OpenProgram(BinFolder() + "sample_fault.exe", {}, FaultTitle);
        ASSERT_NE(sample.window, nullptr);
        ASSERT_TRUE(WindowsBecome(0, 1)) << "the library isn't in the sample";
    }

    void Fault(FaultKind kind) { PostMessageA(sample.window, FaultMessage, kind, 0); }

    // Waits for the dialog; its title names the program.
    void FaultAndReport(FaultKind kind) {
        OpenFaulting();
        Fault(kind);
        ASSERT_TRUE(Eventually(
            [&] {
                dialog = WindowOf(sample.program->Id(), "sample_fault.exe");
                return IsWindowVisible(dialog) != FALSE;
            },
            ReportLimit))
            << "no dialog; faults seen: " << seen->faults << Format(", code %08lX", seen->record.ExceptionCode);
    }

    HWND Item(int id) const { return GetDlgItem(dialog, id); }

    std::string ReportText() const { return TextOf(Item(TextId)); }

    testing::AssertionResult Ends(DWORD status, DWORD limit = WaitLimit) const {
        if (!sample.program->Ends(limit)) return testing::AssertionFailure() << "the program goes on";
        if (sample.program->ExitStatus() == status) return testing::AssertionSuccess();
        return testing::AssertionFailure() << Format("ended with %08lX", sample.program->ExitStatus());
    }

    // Of the report's head, what the platform said of the fault.
    void ExpectHead(const std::string& text, const char* exception) const {
#ifdef _WIN64
        const std::string registers[] = {"RBX:" + Address(seen->context.Rbx), "R15:" + Address(seen->context.R15)};
#else
        const std::string registers[] = {"EBX:" + Address(seen->context.Ebx), "EBP:" + Address(seen->context.Ebp)};
#endif
        for (const std::string& piece :
             {Format("\r\nException code: %08lX %s\r\n", seen->record.ExceptionCode, exception) +
                  "Fault address:  " + Address(reinterpret_cast<ULONG_PTR>(seen->record.ExceptionAddress)) + " ",
              registers[0], registers[1], std::string("\r\nOperating System\r\n===============\r\nVersion : ")})
            EXPECT_NE(text.find(piece), text.npos) << piece << "\nisn't in\n" << text.substr(0, 1500);
    }

    HANDLE mapping = nullptr;
    FaultSeen* seen = nullptr;
    Sample sample;
    HWND dialog = nullptr;
};

TEST_F(CrashTest, TellsWhatThePlatformSays) {
    struct Case {
        FaultKind kind;
        const char* name;
        const char* function;
    };
    const Case cases[] = {
        {Read, "ACCESS_VIOLATION", "FaultWithProbe"},  {Deep, "ACCESS_VIOLATION", "Innermost"},
        {Execute, "ACCESS_VIOLATION", "instructions"}, {Divide, "INT_DIVIDE_BY_ZERO", "FaultWithProbe"},
        {StackOverflow, "STACK_OVERFLOW", "Overflow"},
    };
    for (const Case& entry : cases) {
        if (entry.kind == StackOverflow && !ReportsOverflow) continue;
        SCOPED_TRACE(entry.kind);
        ASSERT_NO_FATAL_FAILURE(FaultAndReport(entry.kind));
        const std::string text = ReportText();
        ExpectHead(text, entry.name);
        const std::string library = Address(reinterpret_cast<ULONG_PTR>(seen->library));
        EXPECT_NE(text.find(" " + library + "  "), text.npos) << text.substr(0, 5000);
        const std::string heading = "\r\nCall stack:\r\nAddress ";
        const std::string where = Address(reinterpret_cast<ULONG_PTR>(seen->record.ExceptionAddress)) + "  ";
        std::size_t walk = text.find(heading);
        for (int number = 0; number < 2; ++number) {
            const std::size_t first = text.find("\r\n", walk + heading.size()) + 2;
            const std::string line = text.substr(first, text.find("\r\n", first) - first);
            EXPECT_EQ(line.rfind(where, 0), 0u) << line;
            EXPECT_NE(line.find(entry.function), line.npos) << line;
            walk = text.find(heading, first);
        }
        EXPECT_EQ(walk, text.npos) << "two walks";
        if (entry.kind == Read) {
            for (const char* line : {"\tLocal 'probe' halyard::test::Probe\r\n", "\t\t first = 11223344\r\n",
                                     "\t\t second = 5566\r\n", "\t\t third = 77\r\n", "\tLocal 'zero' = 0\r\n",
                                     "\tLocal 'text' = \"a text of more than thirty-one \"\r\n",
                                     "\tParameter 'kind' = 0\r\n", "'halyard::test::globalProbe' = 1234567\r\n"})
                EXPECT_NE(text.find(line), text.npos) << line;
        }
        if (entry.kind == Deep) {
            const std::size_t stack = text.find("Call stack:");
            std::size_t caller = stack;
            for (const char* function : {"Innermost", "Inner", "Outer", "FaultDeep", "FaultWithProbe", "FaultForTest"})
                if (caller != text.npos) caller = text.find(function, caller + 1);
            EXPECT_NE(caller, text.npos) << "callers are missing\n" << text.substr(stack, 1500);
        }
        Click(MiddleOf(Item(CloseId)));
        EXPECT_TRUE(Ends(seen->record.ExceptionCode));
        EXPECT_EQ(seen->ownFilterCalls, 0) << "of the program's own filter";
    }
}

class StrippedCrashTest : public CrashTest {
    const char* Library() const override { return "faulting\\stripped\\tvlHalyd.dll"; }
};

// What the report says is looked at by the test of the tool that names its places.
TEST_F(StrippedCrashTest, LeavesAReport) {
    ASSERT_NO_FATAL_FAILURE(FaultAndReport(Deep));
    std::ofstream(BinFolder() + "faulting\\stripped\\report.txt", std::ios::binary) << ReportText();
    PostMessageA(dialog, WM_CLOSE, 0, 0);
    EXPECT_TRUE(Ends(EXCEPTION_ACCESS_VIOLATION));
}

TEST_F(CrashTest, DialogServesMouseAndKeyboard) {
    const std::string mail = "\"" + BinFolder() + "sample_wizard.exe\" \"%1\"";
    RegSetValueA(HKEY_CLASSES_ROOT, "mailto\\shell\\open\\command", REG_SZ, mail.c_str(), 0);
    ASSERT_NO_FATAL_FAILURE(FaultAndReport(Read));
    ASSERT_TRUE(BringToFront(dialog));
    const RECT place = PlaceOf(dialog);
    EXPECT_LT(std::abs(place.left + place.right - 1024), 3) << "not centred: " << Describe(dialog);
    DWORD start = 1, end = 1;
    Ask(Item(TextId), EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    EXPECT_TRUE(start == 0 && end == ReportText().size()) << start << " to " << end << " is selected";

    TapKey("Escape");
    const RECT link = PlaceOf(Item(LinkId));
    Click({link.left + 5, link.top + 5});
    EXPECT_TRUE(Eventually([] { return standin::ReadNumber(standin::WizardRunsValue) == 1; })) << "no mail program";
    const std::string opened = standin::ReadText(standin::WizardCommandLineValue);
    EXPECT_NE(opened.find("mailto:help@tevral.example?subject=Halyard%20Error%20Report"), opened.npos) << opened;
    EXPECT_TRUE(IsWindow(dialog)) << "Esc closed it";

    // Closed by its caption; the last state of the box counts.
    for (const LRESULT state : {BST_CHECKED, BST_UNCHECKED}) {
        Click(MiddleOf(Item(BoxId)));
        EXPECT_TRUE(Eventually([&] { return Ask(Item(BoxId), BM_GETCHECK) == state; }));
    }
    Click({place.right - 12, place.top + 12});
    EXPECT_TRUE(Ends(EXCEPTION_ACCESS_VIOLATION));
    const std::string key = ProgramKey(BinFolder() + "sample_fault.exe");
    EXPECT_EQ(NumberOr(key, "Excluded", 0), 0u);

    // Kept out of the program from its next start.
    ASSERT_NO_FATAL_FAILURE(FaultAndReport(Read));
    ASSERT_TRUE(BringToFront(dialog));
    Click(MiddleOf(Item(BoxId)));
    EXPECT_TRUE(Eventually([&] { return Ask(Item(BoxId), BM_GETCHECK) == BST_CHECKED; }));
    TapKey("Return");
    EXPECT_TRUE(Ends(EXCEPTION_ACCESS_VIOLATION));
    EXPECT_EQ(NumberOr(key, "Excluded", 0), 1u);
    sample = OpenProgram(BinFolder() + "sample_fault.exe", {}, FaultTitle);
    OpenSample("Other");
    ASSERT_TRUE(WindowsBecome(0, 1)) << "the one that came later is there, the excluded one isn't";
}

TEST_F(CrashTest, ProgramsOwnFaultGoesToItsOwnFilter) {
    OpenFaulting();
    Fault(ProgramsOwn);
    EXPECT_TRUE(Ends(OwnFilterStatus));
    EXPECT_EQ(seen->ownFilterCalls, 1);
    EXPECT_EQ(seen->ownFilterCode, static_cast<DWORD>(EXCEPTION_ACCESS_VIOLATION));
}

// The debug-help library hangs; no thread can start beside one that holds the loader's lock.
TEST_F(CrashTest, ShowsWhatItHasWhenItGetsStuck) {
    for (const FaultKind kind : {SymbolsHang, LoaderLocked}) {
        SCOPED_TRACE(kind);
        ASSERT_NO_FATAL_FAILURE(FaultAndReport(kind));
        const std::string text = ReportText();
        ExpectHead(text, "ACCESS_VIOLATION");
        EXPECT_EQ(text.find("\r\nModules\r\n") != text.npos, kind == SymbolsHang) << text;
        EXPECT_EQ(text.find("Call stack"), text.npos) << text;
        Click(MiddleOf(Item(CloseId)));
        EXPECT_TRUE(Ends(EXCEPTION_ACCESS_VIOLATION));
    }
}

// The library's abort is no exception.
TEST_F(CrashTest, EndsWhereThereCanBeNoReport) {
    OpenFaulting();
    Fault(Abort);
    EXPECT_TRUE(Ends(3));

    if (!ReportsOverflow) {
        OpenFaulting();
        Fault(StackOverflow);
        EXPECT_TRUE(sample.program->Ends(WaitLimit));
    }
    // The second may find the filter gone and take the process along, with the report of the first.
    OpenFaulting();
    Fault(TwoThreads);
    EXPECT_TRUE(Eventually(
        [&] {
            dialog = WindowOf(sample.program->Id(), "sample_fault.exe");
            if (dialog) PostMessageA(dialog, WM_CLOSE, 0, 0);
            return sample.program->Ends(0);
        },
        ReportLimit));
    EXPECT_EQ(seen->faults, 2);
    EXPECT_TRUE(Ends(EXCEPTION_ACCESS_VIOLATION));
}

}  // namespace

}  // namespace halyard::test
