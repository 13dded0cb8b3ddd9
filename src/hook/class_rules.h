// The rules by which windows of other programs are told apart, on plain values.
#pragma once

#include <cstdint>

namespace halyard {

// The outward signs of a window.
struct WindowTraits {
    std::uint32_t style = 0;
    std::uint32_t exStyle = 0;
    std::uint32_t classAtom = 0;
    const char* className = "";  // normalised
    bool hasParent = false;      // GetParent gives a window: the parent of a child, the owner of a popup
    std::uint32_t parentStyle = 0;
    bool hasOwner = false;
};

// Cuts an "Afx:" name at its last colon, in place: what stands behind it differs from run to run.
void NormaliseClassName(char* name) noexcept;

// Whether the name is in the table, exactly and with case.
bool IsExcludedClass(const char* name) noexcept;
bool IsMemoryExcludedClass(const char* name) noexcept;

// What decides whether a window is managed; the first that applies.
enum class ManagedRule {
    DialogWithBox,
    OwnedBySimple,
    AsksForButton,
    FullFrame,
    CaptionWithBoxes,
    CaptionWithEdge,
    // From here on it isn't.
    Child,
    DialogWithoutBox,
    SystemClass,
    ExcludedClass,
    OwnedByFrame,
    Owned,
    NoEdge,
    NoCaption,
};
ManagedRule RuleFor(const WindowTraits& window) noexcept;
constexpr bool IsManagedBy(ManagedRule rule) noexcept {
    return rule < ManagedRule::Child;
}

// An application window: gets the menu extension, is reported to the server.
bool IsManaged(const WindowTraits& window) noexcept;
// Placed as a dialog. One of the two boxes makes a dialog box both managed and a dialog.
bool IsDialog(const WindowTraits& window) noexcept;
// Its position is worth remembering.
bool Qualifies(const WindowTraits& window) noexcept;

}  // namespace halyard
