// Run-time errors as the system carries them to hosts: with their source and text.
#pragma once

#include <oaidl.h>

#include "base/error.h"

namespace tavisk {

/// Leaves the error's source and text for a host that asks; the HRESULT to return.
HRESULT leaveErrorInfo(const RunTimeError& error) noexcept;

/// For late binding: moves what was left into `exception`, which may be null; DISP_E_EXCEPTION.
HRESULT takeErrorInfo(HRESULT failure, EXCEPINFO* exception) noexcept;

}  // namespace tavisk
