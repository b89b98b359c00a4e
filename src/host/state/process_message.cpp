#include "host/state/process_message.h"

#include "platform/messages.h"

bool processMessage() {
    platform::Message message;
    if (!platform::peekMessage(message)) {
        platform::waitMessage(10);
        return true;
    }
    if (message.id == platform::WM_QUIT) {
        platform::postQuitMessage(static_cast<int>(message.wParam));
        return false;
    }
    platform::dispatchMessage(message);
    return true;
}
