#include "host/state/session_folder.h"

#include "foundation/path.h"
#include "host/state/host_state.h"

std::string sessionFolder() {
    const std::string& folder = host().dataApplication.getSessionFileName();
    return zelkova::normalizePath(folder.empty() ? host().modulePath + "../cnf" : folder);
}
