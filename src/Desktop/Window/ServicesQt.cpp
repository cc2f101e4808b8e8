#include "Desktop/Window/ServicesQt.h"

#include "Desktop/Binding/Strings.h"
#include "Desktop/Text/SecretText.h"
#include "Desktop/Text/TextContent.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QTimer>
#include <QUrl>

namespace korvane {

std::optional<Rope> ServicesQt::ClipboardQt::text() const {
    const auto* content = QGuiApplication::clipboard()->mimeData();
    if (!content || !content->hasText())
        return std::nullopt;
    return textOf(*content);
}

void ServicesQt::ClipboardQt::setText(const Rope& text) {
    QGuiApplication::clipboard()->setMimeData(new TextContent(text));
}

void ServicesQt::ClipboardQt::setSecret(std::string_view text) {
    QGuiApplication::clipboard()->setMimeData(secretText(qString(text)));
}

void ServicesQt::TimersQt::after(std::chrono::milliseconds delay, std::function<void()> action) {
    QTimer::singleShot(delay, qApp, std::move(action));
}

void ServicesQt::BackgroundQt::run(std::function<void()> work, std::function<void()> done) {
    m_threads.start([work = std::move(work), done = std::move(done)]() mutable {
        work();
        work = nullptr; // its inputs may be large and are freed on this thread
        QMetaObject::invokeMethod(qApp, std::move(done), Qt::QueuedConnection);
    });
}

void ServicesQt::BrowserQt::open(std::string_view url) {
    m_opener.open(QUrl(qString(url)).toEncoded().toStdString());
}

std::shared_ptr<ImageProcess> ServicesQt::ImagesQt::process() {
    auto process = m_process.lock();
    if (!process) {
        // Ended in the background: a process with a large picture takes long to end.
        const auto end = [&background = m_background](ImageProcess* last) {
            background.run([owned = std::shared_ptr<ImageProcess>(last)]() mutable { owned.reset(); }, [] {});
        };
        process = std::shared_ptr<ImageProcess>(new ImageProcess, end);
        m_process = process;
    }
    return process;
}

} // namespace korvane
