#include "hook/classification.h"

#include "process/window_long.h"

namespace halyard {

namespace {

constexpr int ClassNameRoom = 260;

struct ClassName {
    explicit ClassName(HWND window) noexcept : text{} {
        GetClassNameA(window, text, ClassNameRoom);
        NormaliseClassName(text);
    }
    char text[ClassNameRoom];
};

WindowTraits TraitsOf(HWND window, const ClassName& name) noexcept {
    WindowTraits traits;
    traits.style = ReadWindowLong(window, GWL_STYLE);
    traits.exStyle = ReadWindowLong(window, GWL_EXSTYLE);
    traits.classAtom = GetClassLongA(window, GCW_ATOM);
    traits.className = name.text;
    if (HWND parent = GetParent(window)) {
        traits.hasParent = true;
        traits.parentStyle = ReadWindowLong(parent, GWL_STYLE);
    }
    traits.hasOwner = GetWindow(window, GW_OWNER) != nullptr;
    return traits;
}

}  // namespace

WindowKind KindOf(HWND window) noexcept {
    // Most windows are children, and neither.
    if (ReadWindowLong(window, GWL_STYLE) & WS_CHILD) return {};
    const ClassName name(window);
    const WindowTraits traits = TraitsOf(window, name);
    return {IsManaged(traits), IsDialog(traits)};
}

ManagedRule RuleFor(HWND window) noexcept {
    const ClassName name(window);
    return RuleFor(TraitsOf(window, name));
}

bool QualifiesForWindowMemory(HWND window) noexcept {
    const ClassName name(window);
    return Qualifies(TraitsOf(window, name));
}

TextBuffer NormalisedClassName(HWND window) noexcept {
    return TextBuffer(ClassName(window).text);
}

}  // namespace halyard
