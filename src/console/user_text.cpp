#include "console/user_text.h"

#include <vector>

#include "foundation/text.h"
#include "host/state/host_state.h"

std::string userName(int index) {
    const std::vector<DataUserInfo>& users = host().userList;
    return index >= 0 && index < static_cast<int>(users.size())
               ? users[static_cast<std::size_t>(index)].getName()
               : std::string();
}

std::string userLabel(int index) {
    if (index < 0 || index >= static_cast<int>(host().userList.size())) return {};
    return "[" + zelkova::numberToText(index + 1) + "]" + userName(index);
}
