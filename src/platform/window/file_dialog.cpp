#include <QAbstractItemView>
#include <QFileDialog>
#include <QLineEdit>
#include <filesystem>

#include "platform/detail/answers.h"
#include "platform/detail/delivery.h"
#include "platform/detail/modal_stack.h"
#include "platform/detail/qt_text.h"
#include "platform/dialog.h"
#include "platform/files.h"

namespace platform {

namespace {

using namespace detail;

QString toQtPath(const std::filesystem::path& path) {
    return QString::fromStdString(path.string());
}

// Where the dialog starts and the file it proposes.
struct Start {
    QString folder, file;
};

Start splitStart(std::string_view startPath) {
    if (startPath.empty()) return {};
    const std::filesystem::path native = nativePath(fullPath(startPath));
    std::error_code ignored;
    if (std::filesystem::is_directory(native, ignored)) return {toQtPath(native), {}};
    const std::string name = native.filename().string();
    return {toQtPath(native.parent_path()), name == "*" ? QString() : QString::fromStdString(name)};
}

// A name that ends with a bracket tells the patterns in its own way.
bool namesItsPatterns(const FileDialog& options) {
    return options.filterName.ends_with(")");
}

QString nameFilter(const FileDialog& options) {
    QString patterns = toQt(options.pattern.empty() ? "*" : options.pattern);
    patterns.replace(u';', u' ');
    return QStringLiteral("%1 (%2)").arg(toQt(options.filterName), patterns);
}

// None when the code page lacks a character of the name, and without it the name is that of another file.
std::optional<std::string> programName(const QString& file, bool orOfNoFile) {
    auto exact = programPath(file.toStdString());
    if (exact || !orOfNoFile) return exact;
    std::string closest = fromQt(file);
    return pathExists(closest) ? std::nullopt : std::optional(std::move(closest));
}

QLineEdit* nameEdit(const QFileDialog& picker) {
    return picker.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
}

// The toolkit's file dialog asks and warns in loops of its own, in which nothing else of the program would
// run. So all questions are asked here, and what would open such a loop is left out.
class Picker : public QFileDialog {
public:
    Picker(QWidget* owner, WindowHandle window) : QFileDialog(owner), window_(window) {
        setOption(DontUseNativeDialog);
        setOption(DontConfirmOverwrite);
        setOption(ReadOnly); // no renaming and no deleting, which ask
        setOption(DontResolveSymlinks);
        for (QAbstractItemView* view : findChildren<QAbstractItemView*>())
            view->setContextMenuPolicy(Qt::NoContextMenu);
    }

    void setExtension(const QString& extension) { extension_ = extension; }

    // The toolkit would leave its default suffix out of a name with a point in it.
    QStringList namedFiles() const {
        QStringList files = selectedFiles();
        for (QString& file : files) {
            const QFileInfo info(file);
            if (!extension_.isEmpty() && !info.isDir() &&
                info.suffix().compare(extension_, Qt::CaseInsensitive) != 0)
                file += u'.' + extension_;
        }
        return files;
    }

    void accept() override {
        const QStringList files = namedFiles();
        if (files.isEmpty()) return;
        const QFileInfo first(files.front());
        bool agreed = first.isDir() && fileMode() != Directory; // enters the folder
        if (!agreed) enterProgram([&] { agreed = agreesTo(files, first); });
        if (agreed) QFileDialog::accept();
    }

private:
    bool agreesTo(const QStringList& files, const QFileInfo& first) {
        const QPointer<Picker> alive = this;
        for (const QString& file : files) {
            const QString name = QFileInfo(file).fileName();
            // Its name would come back as that of another file.
            const auto path = programName(file, fileMode() == ExistingFiles);
            if (!path)
                return warn(QStringLiteral(u"%1 は選べません。\n名前かフォルダ名に、使えない文字があります。")
                                .arg(name));
            if (acceptMode() == AcceptOpen && !QFileInfo::exists(file))
                return warn(QStringLiteral(u"%1 が見つかりません。").arg(name));
            if (std::error_code unknown;
                acceptMode() == AcceptSave &&
                !std::filesystem::is_directory(nativePath(*path).parent_path(), unknown))
                return warn(QStringLiteral(u"%1 という名前では保存できません。\n"
                                           u"フォルダがないか、名前に使えない文字（/ など）があります。")
                                .arg(directory().relativeFilePath(file)));
        }
        if (acceptMode() == AcceptOpen || !first.exists()) return true;
        const QString question =
            QStringLiteral(u"%1 は既に存在します。\n上書きしますか？").arg(first.fileName());
        return messageBox(window_, fromQt(question), fromQt(windowTitle()), Buttons::YesNo,
                          SystemIcon::Warning) == Answer::Yes &&
               alive;
    }

    bool warn(const QString& notice) {
        messageBox(window_, fromQt(notice), fromQt(windowTitle()), Buttons::Ok, SystemIcon::Warning);
        return false;
    }

    WindowHandle window_;
    QString extension_;
};

std::vector<std::string> toProgram(const Picker& picker) {
    std::vector<std::string> paths;
    for (const QString& file : picker.namedFiles())
        if (auto path = programName(file, picker.fileMode() == QFileDialog::ExistingFiles))
            paths.push_back(std::move(*path));
    return paths;
}

// As a user who types the paths.
bool choose(Picker& picker, const std::vector<std::string>& paths) {
    QStringList names;
    for (const std::string& path : paths)
        names << toQtPath(nativePath(path));
    const QString text =
        names.size() == 1 ? names.front() : u'"' + names.join(QStringLiteral("\" \"")) + u'"';
    // What was proposed gives way only to a line that has the focus.
    for (QAbstractItemView* view : picker.findChildren<QAbstractItemView*>())
        view->clearSelection();
    nameEdit(picker)->setText(text);
    picker.accept();
    return picker.result() == QDialog::Accepted;
}

std::vector<std::string> run(Picker* picker, WindowHandle owner, const std::string& kind) {
    Modal modal(kind, owner, picker);
    modal.show();
    const QPointer<Picker> open = picker;
    if (answers()) {
        const auto paths = answers()->fileDialog(kind, fromQt(nameEdit(*picker)->text()));
        if (paths.empty() || !choose(*picker, paths) || !open) return {};
    } else {
        modal.waitUntil([&] { return !open || !open->isVisible(); });
        if (!open || open->result() != QDialog::Accepted) return {};
    }
    return toProgram(*open);
}

Picker* makePicker(WindowHandle owner, const FileDialog& options) {
    auto* picker = new Picker(ownerWidget(owner), owner);
    if (!options.title.empty()) picker->setWindowTitle(toQt(options.title));
    const Start start = splitStart(options.startPath);
    if (!start.folder.isEmpty()) picker->setDirectory(start.folder);
    if (!start.file.isEmpty()) picker->selectFile(start.file);
    if (!options.fileName.empty()) nameEdit(*picker)->setText(toQt(options.fileName));
    return picker;
}

} // namespace

std::vector<std::string> openFileDialog(WindowHandle owner, const FileDialog& options) {
    Picker* picker = makePicker(owner, options);
    picker->setAcceptMode(QFileDialog::AcceptOpen);
    picker->setFileMode(options.multiple ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
    picker->setNameFilter(nameFilter(options));
    picker->setOption(QFileDialog::HideNameFilterDetails, namesItsPatterns(options));
    return run(picker, owner, "open file");
}

std::optional<std::string> saveFileDialog(WindowHandle owner, const FileDialog& options) {
    Picker* picker = makePicker(owner, options);
    picker->setAcceptMode(QFileDialog::AcceptSave);
    picker->setFileMode(QFileDialog::AnyFile);
    picker->setNameFilter(nameFilter(options));
    picker->setExtension(toQt(options.defaultExtension));
    const auto paths = run(picker, owner, "save file");
    return paths.empty() ? std::nullopt : std::optional(paths.front());
}

std::optional<std::string> folderDialog(WindowHandle owner, const std::string& startFolder) {
    FileDialog options;
    options.startPath = startFolder;
    Picker* picker = makePicker(owner, options);
    picker->setFileMode(QFileDialog::Directory);
    picker->setOption(QFileDialog::ShowDirsOnly);
    const auto paths = run(picker, owner, "folder");
    return paths.empty() ? std::nullopt : std::optional(paths.front());
}

} // namespace platform
