// The stand-in shell as an in-process COM library, which stays mapped once it is.
#include "shell/com_classes.h"

namespace standin {

namespace {

using Maker = IUnknown* (*)();

struct ServedClass {
    GUID id;
    Maker make;
};

constexpr ServedClass Classes[] = {
    {{0x75048700, 0xEF1F, 0x11D0, {0x98, 0x88, 0x00, 0x60, 0x97, 0xDE, 0xAC, 0xF9}}, MakeActiveDesktop},
    {{0x56FDF344, 0xFD6D, 0x11D0, {0x95, 0x8A, 0x00, 0x60, 0x97, 0xC9, 0xA0, 0x90}}, MakeTaskList}};

class Factory final : public ComObject<IClassFactory, IID_IClassFactory> {
public:
    explicit Factory(Maker maker) : make(maker) {}

    STDMETHODIMP CreateInstance(IUnknown*, REFIID wanted, void** object) override {
        IUnknown* made = make();
        const HRESULT result = made->QueryInterface(wanted, object);
        made->Release();
        return result;
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }

private:
    Maker make;
};

}  // namespace

}  // namespace standin

STDAPI DllGetClassObject(REFCLSID id, REFIID wanted, void** object) {
    *object = nullptr;
    for (const standin::ServedClass& served : standin::Classes) {
        if (id != served.id) continue;
        auto* factory = new standin::Factory(served.make);
        const HRESULT result = factory->QueryInterface(wanted, object);
        factory->Release();
        return result;
    }
    return CLASS_E_CLASSNOTAVAILABLE;
}
