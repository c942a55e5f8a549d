#include "editor/answerText.h"

#include <algorithm>
#include <utility>

#include "base/error.h"
#include "base/text.h"
#include "document/xmlParse.h"
#include "editor/helpSession.h"
#include "formulas/formulaCatalogue.h"
#include "formulas/tokens.h"

namespace tavisk {

namespace {

std::u16string token(std::u16string_view body) {
    std::u16string marker;
    marker.reserve(body.size() + 2);
    marker += u'`';
    marker += body;
    marker += u'`';
    return marker;
}

void appendToText(HelpSession& session, std::u16string_view marker) {
    changeAnswerText(session, session.panel.text + std::u16string(marker));
}

/// The selected characters give way to the marker.
void replaceSelection(HelpSession& session, TextSelection selection, std::u16string_view marker) {
    const std::u16string_view text = session.panel.text;
    const std::size_t after = checkedCount(selection.start + selection.length + 1) - 1;
    std::u16string changed(text.substr(0, selection.start));
    changed += marker;
    changed += text.substr(std::min(after, text.size()));
    changeAnswerText(session, std::move(changed));
}

}  // namespace

void changeAnswerText(HelpSession& session, std::u16string text) {
    session.panel.changeText(*session.file.articledoc, session.currentnode, std::move(text));
}

void insertFormulaAtCursor(HelpSession& session, std::string_view formula,
                           TextSelection selection) {
    replaceSelection(session, selection, toUtf16(formulaToken(formula)));
}

void insertFormulaAtEnd(HelpSession& session, std::string_view formula) {
    appendToText(session, toUtf16(formulaToken(formula)));
}

void insertImageAtCursor(HelpSession& session, std::string_view entry, TextSelection selection) {
    replaceSelection(session, selection, token(toUtf16(entry)));
}

void insertImageAtEnd(HelpSession& session, std::string_view entry) {
    appendToText(session, token(toUtf16(entry)));
}

void insertOverlay(HelpSession& session, std::string_view entry) {
    std::u16string body = toUtf16(entry);
    if (body.empty()) raise(ErrorNumber::invalidArgument);
    body.front() = u'!';
    appendToText(session, token(body));
}

void insertExternalImage(HelpSession& session, Dialogs& dialogs, TextSelection selection) {
    const std::string path = dialogs.inputBox(
        "Please enter the path to the image (EG: C:\\test.jpg)", "External image", "");
    if (path.empty()) return;
    replaceSelection(session, selection, token(u'@' + toUtf16(path)));
}

}  // namespace tavisk
