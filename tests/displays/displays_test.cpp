#include "behaviours/inprocess_fixture.h"

#include <atomic>
#include <functional>
#include <thread>

namespace halyard::test {
namespace {

class DisplaysTest : public BehaviourTest {};

unsigned callbacks = 0;

// One that goes away before it is asked about, and then the real ones over and over.
BOOL WINAPI EnumerateTwelve(HDC, const RECT*, MONITORENUMPROC callback, LPARAM data) {
    const auto real = RealDisplays();
    callback(HandleFromBits<HMONITOR>(0x7EADBEEF), nullptr, nullptr, data);
    for (callbacks = 0; callbacks < 12;)
        if (!callback(real[callbacks++ % real.size()].handle, nullptr, nullptr, data)) break;
    return TRUE;
}

std::atomic<unsigned> round = 0;

// Now all displays, now the first alone.
BOOL WINAPI EnumerateInTurn(HDC, const RECT*, MONITORENUMPROC callback, LPARAM data) {
    static const auto real = RealDisplays();
    const std::size_t count = round++ % 2 ? 1 : real.size();
    for (std::size_t index = 0; index < count; ++index)
        callback(real[index].handle, nullptr, nullptr, data);
    return TRUE;
}

// Each reader by itself: a wait for the lock in one would keep the other away from the moment of the change.
TEST_F(DisplaysTest, IsReadWholeBesideARefresh) {
    profile.enumDisplayMonitors = EnumerateInTurn;
    RefreshDisplays();
    const RECT alone = displays[0].workArea;
    const auto countTorn = [&](const std::function<bool()>& isWhole) {
        std::atomic<bool> ended = false;
        std::thread writer([&] {
            for (unsigned turn = 0; turn < 2000; ++turn)
                RefreshDisplays();
            ended = true;
        });
        unsigned torn = 0;
        while (!ended)
            torn += !isWhole();
        writer.join();
        return torn;
    };
    EXPECT_EQ(0u, countTorn([&] {
                  const DisplaySet set = CurrentDisplays();
                  return set.count == 1 ? set.workBounds == alone
                                        : set.count == displays.size() && set.workBounds == bounds;
              }));
    EXPECT_EQ(0u, countTorn([&] {
                  const RECT read = WorkBounds();
                  return read == alone || read == bounds;
              }));
}

}  // namespace
}  // namespace halyard::test
