#include "Desktop/Window/ServicesQt.h"

#include "Desktop/Binding/Strings.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QSaveFile>

#include <new>

namespace korvane {

namespace {

std::unexpected<std::string> failure(const QFileDevice& file) {
    return std::unexpected(utf8String(file.errorString()));
}

/// A panel over the active window, deleted when it is closed. Its filter names the kind without the long list
/// of extensions.
QFileDialog& newPanel(const FileKind& kind) {
    auto* panel = new QFileDialog(QApplication::activeWindow());
    panel->setAttribute(Qt::WA_DeleteOnClose);
    QStringList patterns;
    for (const auto& extension : kind.extensions)
        patterns << QStringLiteral("*.") + qString(extension)
                 << QStringLiteral("*.") + qString(extension).toUpper();
    panel->setNameFilter(qString(kind.name) + QStringLiteral(" (") + patterns.join(' ') +
                         QStringLiteral(")"));
    panel->setOption(QFileDialog::HideNameFilterDetails);
    return *panel;
}

void show(QFileDialog& panel, FilePanels::Chosen chosen) {
    QObject::connect(&panel, &QFileDialog::fileSelected, &panel,
                     [chosen = std::move(chosen)](const QString& path) { chosen(utf8String(path)); });
    panel.open();
}

} // namespace

std::expected<SharedBytes, std::string> ServicesQt::FilesQt::read(const std::string& path,
                                                                  std::size_t maxBytes) const {
    QFile file(qString(path));
    const QFileInfo information(file);
    if (information.exists() && !information.isFile()) // opening a pipe would block
        return std::unexpected("It is not a file");
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return failure(file);
    const std::string tooLarge = "The file is too large";
    if (static_cast<std::size_t>(file.size()) > maxBytes)
        return std::unexpected(tooLarge);
    try {
        SharedBuffer bytes;
        bytes.resize(static_cast<std::size_t>(file.size()));
        const auto count = file.read(bytes.data(), static_cast<qint64>(bytes.size()));
        if (count < 0)
            return failure(file);
        bytes.resize(static_cast<std::size_t>(count)); // the file may have been truncated meanwhile
        return bytes.finish();
    } catch (const std::bad_alloc&) {
        return std::unexpected("There is not enough memory for it");
    }
}

std::expected<void, std::string> ServicesQt::FilesQt::write(const std::string& path, std::string_view bytes) {
    QSaveFile file(qString(path));
    const auto size = static_cast<qint64>(bytes.size());
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes.data(), size) != size || !file.commit())
        return failure(file);
    return {};
}

void ServicesQt::FilePanelsQt::open(const FileKind& kind, Chosen chosen) {
    auto& panel = newPanel(kind);
    panel.setWindowTitle(QFileDialog::tr("Open")); // Qt names only its own panel
    panel.setFileMode(QFileDialog::ExistingFile);
    panel.setNameFilters(panel.nameFilters() << QStringLiteral("All files (*)"));
    show(panel, std::move(chosen));
}

void ServicesQt::FilePanelsQt::save(const FileKind& kind, const std::string& proposedName, Chosen chosen) {
    auto& panel = newPanel(kind);
    panel.setWindowTitle(QFileDialog::tr("Save As"));
    panel.setAcceptMode(QFileDialog::AcceptSave);
    panel.setDefaultSuffix(qString(kind.extensions.front()));
    panel.selectFile(qString(proposedName));
    show(panel, [this, kind, chosen = std::move(chosen)](const std::string& path) {
        const auto named = withExtension(path, kind);
        if (named == path || !QFileInfo::exists(qString(named)))
            chosen(named);
        else
            confirmReplacing(named, kind, chosen);
    });
}

/// The panel has asked only about the name as typed, without the added extension.
void ServicesQt::FilePanelsQt::confirmReplacing(const std::string& path, const FileKind& kind,
                                                const Chosen& chosen) {
    const QFileInfo file(qString(path));
    auto* question = new QMessageBox(
        QMessageBox::Warning, QStringLiteral("Save As"),
        QStringLiteral("\u201c%1\u201d already exists. Do you want to replace it?").arg(file.fileName()),
        QMessageBox::Yes | QMessageBox::No, QApplication::activeWindow());
    question->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(question, &QMessageBox::finished, question, [this, path, kind, chosen](int answer) {
        if (answer == QMessageBox::Yes)
            chosen(path);
        else
            save(kind, path, chosen);
    });
    question->open();
}

} // namespace korvane
