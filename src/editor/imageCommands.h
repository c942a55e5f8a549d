// The picture commands of the editor: Add Image and Remove Image.
#pragma once

#include "platform/dialogs.h"

namespace tavisk {

class HelpSession;

/// `cmdImageAdd`: no error leaves it.
void addImage(HelpSession& session, Dialogs& dialogs);

/// `cmdImageDel`, for the current entry of the session's picture list.
void removeImage(HelpSession& session, Dialogs& dialogs);

}  // namespace tavisk
