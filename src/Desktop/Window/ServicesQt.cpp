#include "Desktop/Window/ServicesQt.h"

#include "Desktop/Kit/Strings.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QTimer>

namespace korvane {

std::optional<std::string> ServicesQt::ClipboardQt::text() const {
    const auto* content = QGuiApplication::clipboard()->mimeData();
    if (!content || !content->hasText())
        return std::nullopt;
    return utf8String(content->text());
}

void ServicesQt::ClipboardQt::setText(std::string_view text) {
    QGuiApplication::clipboard()->setText(qString(text));
}

void ServicesQt::TimersQt::after(std::chrono::milliseconds delay, std::function<void()> action) {
    QTimer::singleShot(delay, qApp, std::move(action));
}

} // namespace korvane
