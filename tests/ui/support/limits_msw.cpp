#include <array>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <wx/msw/wrapwin.h>

#include "ui/support/limits.h"
// after windows.h
#include <objbase.h>

namespace tavisk::test {
namespace {

bool always() { return true; }

bool isWine() {
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

bool hasNoBrowserEngine() {
    static const bool missing = [] {
        CLSID document;
        void* engine = nullptr;
        if (FAILED(CLSIDFromProgID(L"htmlfile", &document)) ||
            FAILED(
                CoCreateInstance(document, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, &engine)))
            return true;
        static_cast<IUnknown*>(engine)->Release();
        return false;
    }();
    return missing;
}

constexpr const char* noEngine = "there is no browser engine here to show a page";

struct Limit {
    std::string_view test;  ///< or, ending in ".", all tests of a suite
    bool (*applies)();
    const char* reason;
};

constexpr std::array limits{
    Limit{"FrmPreview.", hasNoBrowserEngine, noEngine},
    Limit{"FrmPreviewLinks.", hasNoBrowserEngine, noEngine},
    Limit{"FrmPreviewWindow.", hasNoBrowserEngine, noEngine},
    Limit{"PreviewXml.ShowsThePageWithFormulasEvaluated", hasNoBrowserEngine, noEngine},
    Limit{"PreviewXml.ShowsThePageAsTyped", hasNoBrowserEngine, noEngine},
    Limit{"PreviewXml.WritesThePageAndThePicturesIntoTheComponentsFolder", hasNoBrowserEngine,
          noEngine},
    Limit{"PreviewXml.AfterAFailedCallTheNextOneWorks", hasNoBrowserEngine, noEngine},
    Limit{"PreviewXml.TheSameFormIsLoadedAgainByTheNextCalls", hasNoBrowserEngine, noEngine},
    Limit{"PreviewXml.CallsInsideThePreviewAreRefused", hasNoBrowserEngine, noEngine},
    Limit{"PreviewXml.TheEditorsPreviewEvaluatesAndReturnsToTheEditor", hasNoBrowserEngine,
          noEngine},
    Limit{"AnswerBoxInputTest.ColouringLetsAnInputMethodFinish", always,
          "an input method would have to be installed"},
    Limit{"FrmMainInput.EscapeGivesUpWhatAnInputMethodComposesAndNothingElse", always,
          "an input method would have to be installed"},
    Limit{"EditorControlsTest.ToolbarButtonsAreToldByTheirToolTips", isWine,
          "Wine tells screen readers nothing of the buttons of a toolbar"},
    Limit{"Accessible.ToolbarKeepsTheNamesOfItsButtons", isWine,
          "Wine tells screen readers nothing of the buttons of a toolbar"},
    Limit{"FrmMainInput.EscapeInAMenuClosesTheMenuOnly", always,
          "an open menu has a loop of its own here, in which no test can go on"},
    Limit{"AnswerBoxInputTest.CtrlTabInsertsNothing", always,
          "on Windows Ctrl+Tab is not a key that leaves a control"},
};

class Skipping final : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo& test) override {
        const std::string suite = std::string(test.test_suite_name()) + ".";
        const std::string name = suite + test.name();
        for (const Limit& limit : limits) {
            if ((limit.test == suite || limit.test == name) && limit.applies())
                GTEST_SKIP() << limit.reason;
        }
    }
};

}  // namespace

void skipWhatCannotHold() { testing::UnitTest::GetInstance()->listeners().Append(new Skipping); }

}  // namespace tavisk::test
