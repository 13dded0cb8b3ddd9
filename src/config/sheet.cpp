#include "config/sheet.h"

#include "process/shared_section.h"

namespace halyard {

Sheet sheet;

PageState CurrentPageState() noexcept {
    return {sheet.canEdit, HooksInstalled()};
}

}  // namespace halyard
