// The component for hosts that create its class through a class factory.
//
// On Windows everything here is the system's own, and the interface of the class is made from
// Tavisk.idl. On Linux it is the same binary interface without the system's support:
//
// - An interface is a pointer to an object whose first word points to a table of functions, in the
//   order in which they stand here. Each takes the object as its first argument and follows the
//   platform's C calling convention. C++ compilers here lay out these classes so; from other
//   languages the table can be read as it is.
// - `BSTR` is a text in UTF-16 code units of the machine's byte order that ends with a NUL. Nothing
//   stands in front of it; there is no length. A null pointer is an empty text.
// - Texts and references that a host hands over stay the host's and are only read. A text that a
//   method hands out is the host's from then on and is given back with `tavisk_free`.
// - A method returns 0 (`S_OK`) or a negative `HRESULT`. Those of a run-time error are 0x800A0000
//   with the error's number, which tavisk.h lists, in the lower 16 bits. Nothing is thrown.
// - Interfaces count their references: what a call hands out is given back with `Release`.
// - Counting references and locking may be done on any thread, the methods of the class only on the
//   thread that runs the host's windows.
//
// A host finds the library in the file tavisk/libtavisk.path below the user's folder for data
// ($XDG_DATA_HOME, or ~/.local/share): one line with the library's path, written by
// `DllRegisterServer`.
#pragma once

#ifdef _WIN32  // the system has all of it

#include <TaviskTypes.h>
#include <olectl.h>

#else

#include <cstdint>

#include "tavisk/tavisk.h"

namespace tavisk {

using HRESULT = std::int32_t;
using ULONG = std::uint32_t;
using BOOL = std::int32_t;
using VARIANT_BOOL = std::int16_t;  ///< -1 is true, 0 is false; any other value passes for true
using BSTR = char16_t*;

struct GUID {
    std::uint32_t Data1;
    std::uint16_t Data2;
    std::uint16_t Data3;
    std::uint8_t Data4[8];

    bool operator==(const GUID&) const = default;
};

/// Only ever handed out empty: all of it is 0.
struct VARIANT {
    std::uint16_t vt;
    std::uint16_t reserved[3];
    std::uint64_t value[2];
};

inline constexpr HRESULT S_OK = 0;
inline constexpr HRESULT S_FALSE = 1;
inline constexpr HRESULT E_NOTIMPL = static_cast<HRESULT>(0x80004001);
inline constexpr HRESULT E_NOINTERFACE = static_cast<HRESULT>(0x80004002);
inline constexpr HRESULT E_POINTER = static_cast<HRESULT>(0x80004003);
inline constexpr HRESULT E_OUTOFMEMORY = static_cast<HRESULT>(0x8007000E);
inline constexpr HRESULT CLASS_E_NOAGGREGATION = static_cast<HRESULT>(0x80040110);
inline constexpr HRESULT CLASS_E_CLASSNOTAVAILABLE = static_cast<HRESULT>(0x80040111);

inline constexpr GUID IID_IUnknown{0, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr GUID IID_IClassFactory{1, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr GUID IID_IclsTavisk{
    0x5D9E4AC5, 0x3BB4, 0x40FA, {0x80, 0xA8, 0xD0, 0xB2, 0xFC, 0x55, 0xEE, 0xF5}};
inline constexpr GUID CLSID_clsTavisk{
    0x11ED3547, 0x003A, 0x435F, {0x88, 0x6D, 0xA7, 0xAD, 0x9D, 0x4D, 0x48, 0xFC}};

class IUnknown {
public:
    /// `*object` is null after a failure.
    virtual HRESULT QueryInterface(const GUID& iid, void** object) = 0;
    virtual ULONG AddRef() = 0;
    virtual ULONG Release() = 0;

protected:
    ~IUnknown() = default;
};

class IClassFactory : public IUnknown {
public:
    /// `outer` is null: the class cannot be a part of another object.
    virtual HRESULT CreateInstance(IUnknown* outer, const GUID& iid, void** object) = 0;
    virtual HRESULT LockServer(BOOL lock) = 0;

protected:
    ~IClassFactory() = default;
};

class IclsTavisk : public IUnknown {
public:
    // Late binding, on Windows only: E_NOTIMPL. Here they keep the methods in their places.
    virtual HRESULT GetTypeInfoCount(std::uint32_t* count) = 0;
    virtual HRESULT GetTypeInfo(std::uint32_t index, std::uint32_t locale, void** info) = 0;
    virtual HRESULT GetIDsOfNames(const GUID& reserved, char16_t** names, std::uint32_t count,
                                  std::uint32_t locale, std::int32_t* ids) = 0;
    virtual HRESULT Invoke(std::int32_t id, const GUID& reserved, std::uint32_t locale,
                           std::uint16_t flags, void* parameters, VARIANT* result, void* error,
                           std::uint32_t* argument) = 0;

    /// Opens the editor. `*result` receives the document as the user left it, or, after an error,
    /// of which the user has been told, a copy of `*xml`. Fails only without memory for that copy,
    /// and with E_POINTER when `result` is null.
    virtual HRESULT editXML(BSTR* xml, BSTR* result) = 0;

    /// Renders the document to a page and shows it, with formula values, pictures and overlays
    /// filled in when `*evaluateFormula` is true (null: it is not). `*result` becomes empty;
    /// `result` may be null.
    virtual HRESULT previewXML(BSTR* xml, VARIANT_BOOL* evaluateFormula, VARIANT* result) = 0;

protected:
    ~IclsTavisk() = default;
};

extern "C" {

/// The class factory of CLSID_clsTavisk.
TAVISK_API HRESULT DllGetClassObject(const GUID& clsid, const GUID& iid, void** object);

/// S_OK when no object, no lock and no loaded document of this library is left, else S_FALSE. The
/// toolkit below cannot be unloaded, so the library stays in the process even after dlclose.
TAVISK_API HRESULT DllCanUnloadNow();

/// Writes the file that tells hosts where this library is, for the user of the process.
TAVISK_API HRESULT DllRegisterServer();

/// Removes that file, unless it names another library.
TAVISK_API HRESULT DllUnregisterServer();

}  // extern "C"

}  // namespace tavisk

#endif
