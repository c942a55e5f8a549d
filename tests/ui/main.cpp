// Starts the toolkit as the component does in a host, and the tests in it.
#include <gtest/gtest.h>
#include <string>
#include <wx/debug.h>
#include <wx/log.h>
#include <wx/string.h>

#include "ui/support/complaints.h"
#include "ui/support/limits.h"
#include "ui/toolkit/runtime.h"

namespace {

void failOnAssert(const wxString& file, int line, const wxString& function,
                  const wxString& condition, const wxString& message) {
    ADD_FAILURE() << file.utf8_str() << ':' << line << ": " << function.utf8_str() << ": "
                  << condition.utf8_str() << ' ' << message.utf8_str();
}

}  // namespace

int main(int count, char** words) {
    testing::InitGoogleTest(&count, words);
    tavisk::startToolkit();
    wxSetAssertHandler(failOnAssert);
    tavisk::test::tellComplaintsOnce();
    tavisk::test::skipWhatCannotHold();
    return RUN_ALL_TESTS();
}
