// The classes of the stand-in shell's COM library, and what their objects are made of.
#pragma once

#include <windows.h>

#include <unknwn.h>

namespace standin {

// The platform's interfaces have no destructor at all; nothing is deleted through them.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// Identity and lifetime of an object with one interface; it starts with one reference. For single threads only.
template <typename Interface, const GUID& InterfaceId>
class ComObject : public Interface {
public:
    STDMETHODIMP QueryInterface(REFIID wanted, void** object) override {
        const bool known = wanted == IID_IUnknown || wanted == InterfaceId;
        *object = known ? static_cast<void*>(this) : nullptr;
        if (known) AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = --references;
        if (left == 0) delete this;
        return left;
    }

protected:
    virtual ~ComObject() = default;

private:
    ULONG references = 1;
};

#pragma GCC diagnostic pop

// New objects with one reference. What is set on the one for wallpaper and style takes effect with ApplyChanges, as in
// the real one; the list of tasks reaches the task bar that runs when it is called.
IUnknown* MakeActiveDesktop();
IUnknown* MakeTaskList();

}  // namespace standin
