// The stand-in shell as an in-process COM library: one table of classes, one kind of factory for all of them.
#include "shell/active_desktop.h"
#include "shell/com_object.h"
#include "shell/task_list.h"

#include <new>

namespace standin {

namespace {

LONG objects = 0;

using Maker = IUnknown* (*)();

struct ServedClass {
    GUID id;
    Maker make;
};

constexpr ServedClass Classes[] = {{ActiveDesktopClass, MakeActiveDesktop}, {TaskListClass, MakeTaskList}};

class Factory final : public ComObject<IClassFactory, IID_IClassFactory> {
public:
    explicit Factory(Maker maker) : make(maker) {}

    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID wanted, void** object) override {
        *object = nullptr;
        if (outer) return CLASS_E_NOAGGREGATION;
        IUnknown* made = make();
        if (!made) return E_OUTOFMEMORY;
        const HRESULT result = made->QueryInterface(wanted, object);
        made->Release();
        return result;
    }
    STDMETHODIMP LockServer(BOOL lock) override {
        lock ? AddObject() : DropObject();
        return S_OK;
    }

private:
    Maker make;
};

}  // namespace

void AddObject() {
    InterlockedIncrement(&objects);
}

void DropObject() {
    InterlockedDecrement(&objects);
}

}  // namespace standin

STDAPI DllGetClassObject(REFCLSID id, REFIID wanted, void** object) {
    *object = nullptr;
    for (const standin::ServedClass& served : standin::Classes) {
        if (id != served.id) continue;
        auto* factory = new (std::nothrow) standin::Factory(served.make);
        if (!factory) return E_OUTOFMEMORY;
        const HRESULT result = factory->QueryInterface(wanted, object);
        factory->Release();
        return result;
    }
    return CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() {
    return standin::objects == 0 ? S_OK : S_FALSE;
}
