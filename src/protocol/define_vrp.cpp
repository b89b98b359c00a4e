#include "protocol/define_vrp.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr std::string_view illegalMessage =
    "You are transmitting an illegal message. Discontinue it at once when you transmit intentionally. "
    "The program notifies the user this information, and records the communication log. ";

// The sentences are part of the protocol: terminals may show or compare them as they stand.
constexpr struct {
    int code;
    std::string_view sentence;
} replies[] = {
    {200, "OK."},
    {201, "Welcome my server."},
    {202, "I am server. I miss you, good bye so long!"},
    {211, "I am client. I miss you, good bye so long!"},
    {401, "Client send request now.Please send it again after it waits a little."},
    {402, "Server is send to bad request."},
    {403, illegalMessage},
    {501, "Server send request now.Please send it again after it waits a little."},
    {502, "Client is send to bad request."},
    {503, illegalMessage},
};

} // namespace

std::string DefineVrp::getReplyText(int code) {
    const auto* found = std::ranges::find(replies, code, [](const auto& reply) { return reply.code; });
    return found == std::end(replies) ? std::string() : std::string(found->sentence);
}
