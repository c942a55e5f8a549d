// Makes the browsers that show pages of unknown content.
#pragma once

class wxWebView;
class wxWindow;

namespace tavisk {

/// What a shown page may load by itself: files, or anything.
enum class PageReach { files, everywhere };

/// A browser without a memory: nothing of it is on the disk, and the host's own browsers share
/// nothing with it. It asks no server for anything unless `reach` lets it. Belongs to `parent`;
/// null if there is no engine.
wxWebView* newConfinedBrowser(wxWindow& parent, const char* name, PageReach reach);

}  // namespace tavisk
