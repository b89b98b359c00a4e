#pragma once
// The numbered messages as boxes: the program's own, with code, details and help, and the system's plain one.
// The words are those of the message catalogue that the logger was given; a code without an entry opens a box
// without text.

#include <functional>
#include <source_location>
#include <string>

#include "foundation/data_pairs.h"
#include "platform/dialog.h"

namespace zelkova {

using MessageButtons = platform::Buttons;

// What start-up hands over, once: where the catalogue lies (shown with the code), the two parts of the boxes'
// title, of which the second is also the name that stands in the titles of all dialogs, and where to ask for
// the address behind the help button, in which "%__SERCH_MESSAGE_CODE__%" stands for the code. It is asked at
// each click, so that a change of the settings counts.
void setCatalogPath(const std::string& path);
void setTitleParts(const std::string& first, const std::string& productName);
void setHelpUrl(std::function<std::string()> url);

// Shows the message with its text as it stands. `defaultButton` counts from 0 inside the set. The result is
// the number of the button pressed (platform::Answer). Esc and the close box answer as the system's box does:
// with Cancel, with OK where that is the only button; between Yes and No they mean No.
int showMessage(platform::WindowHandle owner, int code, MessageButtons buttons = MessageButtons::Ok,
                int defaultButton = 0);
// The same with the placeholders of text and details filled.
int showMessage_pairs(platform::WindowHandle owner, int code, MessageButtons buttons, int defaultButton,
                      const DataPairsList& pairs);

// Logs the message and shows it, with OK alone.
void reportMessage(platform::WindowHandle owner, int code, const DataPairsList& pairs,
                   const std::source_location& place = std::source_location::current());

// The system's box with the message's text, placeholders filled, under the product's name.
platform::Answer plainMessage(platform::WindowHandle owner, int code, const DataPairsList& pairs,
                              platform::Buttons buttons, platform::SystemIcon icon);

// "<product name> -<subject>-"
void setDialogTitle(platform::WindowHandle dialog, const std::string& subject);

} // namespace zelkova
