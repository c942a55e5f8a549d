// The picture commands of the editor: Add Image and Remove Image.
#pragma once

#include <string>

#include "base/dialogs.h"

namespace tavisk {

class HelpSession;

/// `cmdImageAdd`: no error leaves it.
void addImage(HelpSession& session, Dialogs& dialogs);

/// `cmdImageDel`, for the current entry of the session's picture list.
void removeImage(HelpSession& session, Dialogs& dialogs);

/// Bytes of the picture that the list's current entry names; empty when there is none or when its
/// content is not base64.
std::string chosenPicture(const HelpSession& session);

}  // namespace tavisk
