#include "host/state/host_state.h"

#include <optional>

#include "foundation/views/message_box.h"

namespace {

std::optional<HostState> state;

} // namespace

HostState& host() {
    if (!state) state.emplace();
    return *state;
}

void resetHost() {
    state.reset();
    AccesserSession::setStylesheet("");
    AccesserSessionHistory::setStylesheet("");
    zelkova::setCatalogPath("");
    zelkova::setTitleParts("", "");
    zelkova::setHelpUrl({});
    state.emplace();
}
