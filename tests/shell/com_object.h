// What every object of the stand-in shell's library is made of.
#pragma once

#include <windows.h>

#include <unknwn.h>

namespace standin {

// The count by which the library knows whether it may be unmapped.
void AddObject();
void DropObject();

// The platform's interfaces have no destructor at all; nothing is deleted through them.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// Identity and lifetime of an object with one interface; it starts with one reference. For single threads only.
template <typename Interface, const GUID& InterfaceId>
class ComObject : public Interface {
public:
    ComObject() { AddObject(); }
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

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
    virtual ~ComObject() { DropObject(); }

private:
    ULONG references = 1;
};

#pragma GCC diagnostic pop

}  // namespace standin
