// The rings that show where the cursor is. On the server's thread.
#pragma once

namespace halyard {

// True: the animation was idle and begins now; its caller is to call `StepFindCursor` every 50 ms. One that runs is
// left alone.
bool StartFindCursor() noexcept;

// Takes the ring on the screen away and draws the next smaller one round the cursor of the moment. False when the last
// one has gone.
bool StepFindCursor() noexcept;

}  // namespace halyard
