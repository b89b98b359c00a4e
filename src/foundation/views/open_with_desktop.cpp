#include "foundation/views/open_with_desktop.h"

#include "foundation/views/message_box.h"

namespace zelkova {

void openWithDesktop(platform::WindowHandle owner, const std::string& target,
                     void (*way)(const std::string&, const platform::NotOpened&)) {
    way(target, [owner, target] {
        constexpr int notOpened = 3000021;
        DataPairsList pairs;
        pairs.add("FILE", target);
        reportMessage(owner, notOpened, pairs);
    });
}

} // namespace zelkova
