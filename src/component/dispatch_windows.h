// Late binding: methods and parameters by name, arguments of any type that converts.
#pragma once

#include <tavisk/com.h>

namespace tavisk {

/// The description of the interface in this library's type library.
HRESULT interfaceDescription(ITypeInfo** info);

/// `names` are a method and then its parameters, in any letter case.
HRESULT idsOfNames(LPOLESTR* names, UINT count, DISPID* ids) noexcept;

/// A call as a host makes it.
struct LateCall {
    DISPID method;
    LCID locale;
    WORD flags;
    const DISPPARAMS* arguments;
    VARIANT* result;
    EXCEPINFO* exception;
    UINT* wrongArgument;
};

HRESULT invoke(IclsTavisk& object, const LateCall& call) noexcept;

}  // namespace tavisk
