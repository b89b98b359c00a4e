#include "host/shell/version_dialog.h"

#include <array>
#include <cstdio>

#include "foundation/dialog.h"
#include "foundation/views/message_box.h"
#include "host/shell/version_dialog_ids.h"

using namespace version_dialog;

namespace {

constexpr int iconPixels = 64;

std::string versionText(const Version& version) {
    std::array<char, 48> text{};
    std::snprintf(text.data(), text.size(), "%d.%02d.%02d", version.majorNumber, version.minorNumber,
                  version.patchNumber);
    return text.data();
}

class VersionDialog : public zelkova::Dialog {
public:
    explicit VersionDialog(const DataApplication& settings) : Dialog(form), settings_(settings) {}

private:
    void open() override {
        zelkova::setDialogTitle(window(), "バージョン情報");
        platform::setIcon(control(idIcon), "ICO_INTRO_SERVER", iconPixels);
        const std::string& product = settings_.getProductJpn();
        showLine(idName, product.empty() ? settings_.getNameJpn() : product);
        showLine(idVersion, versionText(settings_.getVersion()));
        showLine(idCopyright, settings_.getProductCpyLght());
        showLine(idMaker, settings_.getManufactureJpn());
        showLine(idAddress, settings_.getProductUrl());
    }

    // A delivery that does not tell something leaves no gap.
    void showLine(int id, const std::string& text) {
        platform::setText(control(id), text);
        platform::show(control(id), !text.empty());
    }

    bool onCommand(int id) override {
        if (id == platform::IDOK) end(platform::IDOK);
        return id == platform::IDOK;
    }

    const DataApplication& settings_;
};

} // namespace

void dlgVersion(platform::WindowHandle owner, const DataApplication& settings) {
    VersionDialog(settings).run(owner);
}
