#include "foundation/views/open_with_desktop.h"

#include "foundation/path.h"
#include "foundation/views/message_box.h"

namespace zelkova {

void openWithDesktop(platform::WindowHandle owner, const std::string& target,
                     void (*way)(const std::string&, const platform::NotOpened&)) {
    way(target, [owner, target] {
        constexpr int notOpened = 3000021;
        // Whoever has to open it by hand needs to know from where its path counts.
        const bool isFile = !target.empty() && target.find("://") == std::string::npos;
        DataPairsList pairs;
        pairs.add("FILE", isFile ? getFullPath(target) : target);
        reportMessage(owner, notOpened, pairs);
    });
}

} // namespace zelkova
