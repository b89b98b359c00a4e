#include "host/state/session_folder.h"

#include "host/state/host_state.h"

std::string sessionFolder() {
    const std::string& folder = host().dataApplication.getSessionFileName();
    return folder.empty() ? host().modulePath + "../cnf" : folder;
}
