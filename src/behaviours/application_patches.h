// The two programs whose imports are patched so that they see the extent of all displays.
#pragma once

namespace halyard {

// At load and unload, under the loader lock.
void ApplyApplicationPatches() noexcept;
void RemoveApplicationPatches() noexcept;

}  // namespace halyard
