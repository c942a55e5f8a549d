// Keeps a page of unknown content inside the preview's browser.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "ui/preview/confinedBrowser.h"

class wxWebView;

namespace tavisk {

/// Where a page, or what the user does in it, wants to go.
struct Navigation {
    std::string_view address;
    bool linkClicked = false;  ///< by the user, with pointer or keyboard
    bool newWindow = false;
};

enum class NavigationAnswer { show, openOutside, ignore };

/// `page` is the address of the page that is shown. Only a clicked link leads anywhere: to another
/// place of this page, or out of the preview if its address is one of the web or of mail. Addresses
/// of files stay closed, because opening a file can start a program.
NavigationAnswer answerNavigation(const Navigation& navigation, std::string_view page);

/// The one page that a browser is held to, and the answers about it.
class HeldPage {
public:
    /// The browser will ask for this page next.
    void load(const std::string& address) {
        address_ = address;
        loading_ = true;
    }
    const std::string& address() const { return address_; }
    NavigationAnswer answer(const Navigation& navigation);

private:
    std::string address_;
    bool loading_ = false;  ///< the page was asked for, and nothing has been answered yet
};

/// Keys that are the window's, whatever the page is doing.
enum class BrowserKey { close, zoomIn, zoomOut, zoomNormal };

/// What the browser's window is told.
struct BrowserEvents {
    std::function<void(BrowserKey key)> keyPressed;
    /// A link out of the page was clicked. Called while the browser waits for an answer.
    std::function<void(const std::string& address)> addressClicked;
    /// The process that shows the page is gone, and the page with it. It is not started again: an
    /// engine that fails when it starts ends this process, too.
    std::function<void()> ended;
};

/// Holds one browser to its page for as long as this lives; ends before the browser does.
class BrowserPolicy {
public:
    /// `reach` is what the browser was made for.
    BrowserPolicy(wxWebView& browser, PageReach reach, BrowserEvents events);
    BrowserPolicy(const BrowserPolicy&) = delete;
    BrowserPolicy& operator=(const BrowserPolicy&) = delete;
    ~BrowserPolicy();

    /// The only way to another page.
    void load(const std::string& address);

private:
    struct Native;
    std::unique_ptr<Native> native_;
};

}  // namespace tavisk
