#include "host/state/host_state.h"

#include <optional>

namespace {

std::optional<HostState> state;

} // namespace

HostState& host() {
    if (!state) state.emplace();
    return *state;
}

void resetHost() {
    state.reset();
    state.emplace();
}
