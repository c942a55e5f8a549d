#include "component/errorInfo_windows.h"

#include <oleauto.h>
#include <string>
#include <tavisk/com.h>

#include "component/comObject.h"

namespace tavisk {
namespace {

void leave(const RunTimeError& error) {
    ICreateErrorInfo* created = nullptr;
    if (FAILED(CreateErrorInfo(&created))) return;
    const std::string text = error.what();
    std::wstring wide(text.begin(), text.end());  // all texts are ASCII
    std::wstring source = L"Tavisk";
    created->SetGUID(IID_IclsTavisk);
    created->SetSource(source.data());
    created->SetDescription(wide.data());
    IErrorInfo* info = nullptr;
    if (SUCCEEDED(created->QueryInterface(IID_IErrorInfo, reinterpret_cast<void**>(&info)))) {
        SetErrorInfo(0, info);
        info->Release();
    }
    created->Release();
}

}  // namespace

HRESULT leaveErrorInfo(const RunTimeError& error) noexcept {
    try {
        leave(error);
    } catch (...) {
        // The number says enough.
    }
    return hresultOf(error);
}

HRESULT takeErrorInfo(HRESULT failure, EXCEPINFO* exception) noexcept {
    if (!exception) return DISP_E_EXCEPTION;
    *exception = {};
    exception->scode = failure;
    IErrorInfo* info = nullptr;
    if (GetErrorInfo(0, &info) != S_OK) return DISP_E_EXCEPTION;
    info->GetSource(&exception->bstrSource);
    info->GetDescription(&exception->bstrDescription);
    info->Release();
    return DISP_E_EXCEPTION;
}

}  // namespace tavisk
