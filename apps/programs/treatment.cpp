#include "programs/treatment.h"

#include "hook/classification.h"
#include "programs/program_keys.h"
#include "settings/choices.h"
#include "settings/store.h"

namespace halyard::programs {

namespace {

const char* Why(ManagedRule rule) noexcept {
    switch (rule) {
    case ManagedRule::DialogWithBox: return "a dialog box with a minimize or maximize box";
    case ManagedRule::OwnedBySimple: return "belongs to a window that isn't an application's frame";
    case ManagedRule::AsksForButton: return "its program wants a taskbar button for it";
    case ManagedRule::FullFrame: return "has the whole frame of an application window";
    case ManagedRule::CaptionWithBoxes: return "has a caption with both boxes";
    case ManagedRule::CaptionWithEdge: return "has a caption and a raised edge";
    case ManagedRule::Child: return "is part of another window";
    case ManagedRule::DialogWithoutBox: return "a dialog box without minimize and maximize boxes";
    case ManagedRule::SystemClass: return "one of the system's own windows";
    case ManagedRule::ExcludedClass: return "windows of this class are left alone";
    case ManagedRule::OwnedByFrame: return "belongs to an application's frame";
    case ManagedRule::Owned: return "belongs to another window";
    case ManagedRule::NoEdge: return "has no raised edge";
    case ManagedRule::NoCaption: return "has no caption";
    }
    return "";
}

std::string PlaceOfDialog(const Treatment& program) {
    switch (program.dialogControl) {
    case OnApplicationWindow: return "over its application";
    case OnApplicationDisplay: return "on its application's display";
    case OnNumberedDisplay: return "on display " + std::to_string(program.dialogDisplay);
    case OnCursorDisplay: return "where the cursor is";
    }
    return "where the program wants";
}

std::string PlaceOf(HWND window, const Treatment& program, bool isManaged, bool isDialog) {
    if (isDialog) return PlaceOfDialog(program);
    if (!isManaged || !program.remembers) return "where the program wants";
    return QualifiesForWindowMemory(window) ? "where it was" : "where the program wants: it can't be remembered";
}

}  // namespace

Treatment TreatmentOf(const std::string& path) {
    Treatment treatment;
    RegistryKey all;
    bool docks = false;
    bool remembers = false;
    if (all.Open(ChosenHive(), ProductKey, KEY_READ)) {
        remembers = all.ReadBool("WindowMem", false);
        docks = all.ReadBool("Autodock", false);
        treatment.dialogControl = all.ReadDwordOr("DialogControl", DialogsAsTheyCome);
        treatment.dialogDisplay = all.ReadDwordOr("DialogMonitor", 0);
    }
    RegistryKey own;
    const bool open = OpenProgramKey(own, path);
    treatment.docks = open ? own.ReadBool("Autodock", docks) : docks;
    treatment.remembers = remembers && open && own.ReadBool("WindowMem", false);
    return treatment;
}

WindowTreatment TreatmentOf(HWND window, const Treatment& program) {
    const ManagedRule rule = RuleFor(window);
    const WindowKind kind = KindOf(window);
    const char* name = kind.isManaged ? "application window" : kind.isDialog ? "dialog" : "left alone";
    return {name, PlaceOf(window, program, kind.isManaged, kind.isDialog), Why(rule)};
}

}  // namespace halyard::programs
