#include "Desktop/Look/Glyph.h"

#include "Desktop/Look/Theme.h"

#include <QFile>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QSvgRenderer>

#include <cmath>
#include <map>
#include <memory>
#include <string>

namespace korvane::Glyph {

namespace {

/// The map from glyph names to icon files, read from the list that the build embeds with the files.
const std::map<std::string, QString, std::less<>>& iconFiles() {
    static const auto files = [] {
        std::map<std::string, QString, std::less<>> map;
        QFile list(":/glyphs/glyphs.txt");
        if (!list.open(QIODevice::ReadOnly))
            return map;
        while (!list.atEnd()) {
            const auto words = list.readLine().trimmed().split(' ');
            if (words.size() == 2)
                map.emplace(words[0].toStdString(), ":/glyphs/" + QString::fromUtf8(words[1]));
        }
        return map;
    }();
    return files;
}

QSvgRenderer* renderer(std::string_view name) {
    static std::map<std::string, std::unique_ptr<QSvgRenderer>, std::less<>> renderers;
    if (const auto known = renderers.find(name); known != renderers.end())
        return known->second.get();
    const auto file = iconFiles().find(name);
    auto fresh = file == iconFiles().end() ? nullptr : std::make_unique<QSvgRenderer>(file->second);
    return renderers.emplace(name, std::move(fresh)).first->second.get();
}

} // namespace

bool exists(std::string_view name) {
    const auto* icon = renderer(name);
    return icon && icon->isValid();
}

void paint(QPainter& painter, std::string_view name, const QRectF& rect, const QBrush& brush) {
    if (name.empty())
        return;
    if (!exists(name)) {
        qWarning("No icon file for the glyph name \"%s\"", std::string(name).c_str());
        return;
    }
    const auto scale = painter.device()->devicePixelRatioF();
    const QSize pixels(static_cast<int>(std::lround(rect.width() * scale)),
                       static_cast<int>(std::lround(rect.height() * scale)));
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter tinting(&image);
    renderer(name)->render(&tinting, QRectF(QPointF(), pixels));
    tinting.setCompositionMode(QPainter::CompositionMode_SourceIn);
    tinting.scale(scale, scale);
    tinting.translate(-rect.topLeft());
    tinting.fillRect(rect, brush);
    tinting.end();
    image.setDevicePixelRatio(scale);
    const auto onGrid = [scale](double position) { return std::round(position * scale) / scale; };
    painter.drawImage(QPointF(onGrid(rect.left()), onGrid(rect.top())),
                      image); // off the pixel grid it would be blurred
}

QBrush brandBrush(const QRectF& rect) {
    QLinearGradient gradient(rect.topLeft(), rect.bottomRight());
    gradient.setColorAt(0, Theme::hue(PaletteColor::cyan));
    gradient.setColorAt(1, Theme::hue(PaletteColor::teal));
    return gradient;
}

} // namespace korvane::Glyph
