#pragma once
// The host's end of the connection with its terminal: cuts the stream into messages and answers requests.

#include <string>
#include <string_view>

#include "foundation/socket.h"
#include "protocol/vr_message.h"

class VRConnection : public zelkova::SocketTcp {
public:
    using SocketTcp::SocketTcp;

    void setClientHost(std::string_view address) { clientHost_ = address; }
    void setServerHost(std::string_view address) { serverHost_ = address; }

    // Addresses a message to the terminal. To and From both hold this machine's address.
    void prepare(VRMessage& message) const;
    // Nothing is queued: what the connection does not take at once is lost, and the log tells of it.
    void send(VRMessage& message);
    void sendResponse(int code, std::string_view repliedMethod);

    // Reads one message from what has arrived. Above 0: the message is complete, though it need not be one
    // that can be understood (it then keeps its empty method). 0 or -1: the stream ended or had nothing more
    // before the message was complete, or grew too long without an end; the message holds what could be read.
    // All that was read is used up either way: what stood behind the message's end is lost.
    int receive(VRMessage& message);
    // The bytes that the last call of receive() had to understand.
    const std::string& receivedText() const { return receivedText_; }

private:
    std::string clientHost_, serverHost_, receivedText_;
};
