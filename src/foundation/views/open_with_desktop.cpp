#include "foundation/views/open_with_desktop.h"

#include "foundation/path.h"
#include "foundation/views/message_box.h"
#include "platform/shell.h"

namespace zelkova {

void openWithDesktop(platform::WindowHandle owner, const std::string& target) {
    platform::shellOpen(target, [owner, target] {
        constexpr int notOpened = 3000021;
        // Whoever has to open it by hand needs to know from where its path counts.
        const bool isFile = !target.empty() && target.find("://") == std::string::npos;
        DataPairsList pairs;
        pairs.add("FILE", isFile ? normalizePath(target) : target);
        reportMessage(owner, notOpened, pairs);
    });
}

} // namespace zelkova
