// A fault must fail the run. Left to the platform it may end with status 0, when its debugger is quicker than the dying
// program, or be swallowed, in a window procedure that another thread has sent a message to.
#include "test_main.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace halyard::test {

namespace {

// What happens inside the platform's own modules may be handled there.
LONG CALLBACK EndAtOwnFault(EXCEPTION_POINTERS* fault) {
    if (fault->ExceptionRecord->ExceptionCode != EXCEPTION_ACCESS_VIOLATION) return EXCEPTION_CONTINUE_SEARCH;
    HMODULE module = nullptr;
    GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       static_cast<const char*>(fault->ExceptionRecord->ExceptionAddress), &module);
    return module && module != GetModuleHandleA(nullptr) ? EXCEPTION_CONTINUE_SEARCH : EndAtFault(fault);
}

}  // namespace

LONG WINAPI EndAtFault(EXCEPTION_POINTERS* fault) {
    const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info();
    std::printf("[  FAILED  ] %s.%s: fault %08lX at %p\n", test ? test->test_suite_name() : "",
                test ? test->name() : "", static_cast<unsigned long>(fault->ExceptionRecord->ExceptionCode),
                fault->ExceptionRecord->ExceptionAddress);
    std::fflush(stdout);
    TerminateProcess(GetCurrentProcess(), 3);
    return EXCEPTION_CONTINUE_SEARCH;
}

}  // namespace halyard::test

int main(int count, char** arguments) {
    testing::InitGoogleTest(&count, arguments);
    AddVectoredExceptionHandler(1, halyard::test::EndAtOwnFault);
    SetUnhandledExceptionFilter(halyard::test::EndAtFault);
    return RUN_ALL_TESTS();
}
