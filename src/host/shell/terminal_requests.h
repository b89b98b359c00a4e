#pragma once

class VRMessage;

// A request of the terminal, received while no request of the host is open.
void onRequest(const VRMessage& message);
