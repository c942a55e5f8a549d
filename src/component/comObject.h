// What every object with interfaces has: a count of its references.
#pragma once

#include <atomic>
#include <new>
#include <tavisk/com.h>

#include "base/error.h"
#include "component/serverState.h"

// How the methods of an interface are called.
#ifdef STDMETHODCALLTYPE
#define TAVISK_METHOD STDMETHODCALLTYPE
#else
#define TAVISK_METHOD
#endif

namespace tavisk {

/// Begins with one reference, its creator's, and ends with the last.
template <class... Interfaces>
class ComObject : public Interfaces... {
public:
    ComObject() = default;
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;
    /// Stands behind the interfaces' methods in the table of functions.
    virtual ~ComObject() = default;

    ULONG TAVISK_METHOD AddRef() final { return ++references_; }

    ULONG TAVISK_METHOD Release() final {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

protected:
    /// Answers QueryInterface with one of the object's interfaces, or with none.
    template <class Interface>
    static HRESULT handOut(Interface* found, void** object) {
        if (!object) return E_POINTER;
        *object = found;
        if (!found) return E_NOINTERFACE;
        found->AddRef();
        return S_OK;
    }

private:
    std::atomic<ULONG> references_{1};
    const InUse inUse_;
};

/// The error's number with the mark of numbers that belong to a control.
inline HRESULT hresultOf(const RunTimeError& error) noexcept {
    constexpr unsigned failureOfControl = 0x800A0000;
    return static_cast<HRESULT>(failureOfControl | static_cast<unsigned>(error.number()));
}

/// What `body` returns; the error that it threw. Nothing is thrown.
template <class Body>
HRESULT answered(Body body) noexcept {
    try {
        return body();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return hresultOf(currentRunTimeError());
    }
}

}  // namespace tavisk
