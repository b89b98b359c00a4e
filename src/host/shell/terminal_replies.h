#pragma once

class VRMessage;

// The terminal's answer to the open request of the host.
void onReply(const VRMessage& message);
