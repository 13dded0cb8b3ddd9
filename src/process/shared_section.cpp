#include "process/shared_section.h"

namespace halyard {

// An initialiser of zeros would put the block with the zeroed data, outside of its section, but for the attribute; the
// linker then marks the section shared and every process that maps the library sees the same bytes.
__attribute__((section(".SHARDAT"), shared)) volatile SharedBlock sharedBlock = {0, 0, 0, 0, 0, 0, 0, 0};

}  // namespace halyard
