#include "support/Pictures.h"
#include "support/Scenes.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QUrl>

#include <algorithm>

namespace korvane {

namespace {

void choose(const ScreenDriver& screen, std::string_view picker, int index) {
    screen.picker(picker).setCurrentIndex(index);
}

/// Loads `image` as a file of the format.
void load(const ScreenDriver& screen, FakeServices& fakes, const Image& image, ImageFormat format) {
    fakes.files.contents["/picture"] = FakeImages::shared()->convert(image, format, 0.9).value().view();
    screen.press("Choose File");
    fakes.panels.choose("/picture");
    fakes.background.runAll();
}

void apply(const ScreenDriver& screen, FakeServices& fakes) {
    screen.press("Apply Transforms");
    fakes.background.runAll();
}

/// Simulates dragging a file over the drop zone.
void hold(const ScreenDriver& screen) {
    QMimeData data;
    data.setUrls({QUrl(QStringLiteral("file:///tmp/picture.png"))});
    QDragEnterEvent event(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    for (auto* place = screen.button("Choose File").parentWidget(); place; place = place->parentWidget()) {
        if (place->acceptDrops()) {
            QCoreApplication::sendEvent(place, &event);
            return;
        }
    }
}

/// A photograph, rotated and mirrored, with JPEG as the target format.
void showPhotograph(const ScreenDriver& screen, FakeServices& fakes) {
    load(screen, fakes, support::photograph({1920, 1280}), ImageFormat::jpeg);
    choose(screen, "Format", 1);
    choose(screen, "Rotation", 1);
    choose(screen, "Flip", 1);
    apply(screen, fakes);
}

} // namespace

std::vector<Scene> imageScenes() {
    return {
        {"image", Tool::imageConverter, showPhotograph},
        {"image-saved", Tool::imageConverter,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             showPhotograph(screen, fakes);
             screen.press("Save As...");
             fakes.panels.choose("/converted.jpg");
             fakes.background.runAll();
         }},
        {"image-stale", Tool::imageConverter,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             showPhotograph(screen, fakes);
             choose(screen, "Rotation", 2);
         }},
        {"image-empty", Tool::imageConverter},
        {"image-error", Tool::imageConverter,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             screen.press("Choose File");
             fakes.panels.choose("/gone.png");
             fakes.background.runAll();
             hold(screen);
         }},
        {"image-transparent", Tool::imageConverter,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             const auto fading = support::picture({64, 640}, 4, 1, [](int x, int y, int channel) {
                 return channel == 3 ? std::min(255, 4 * x) : (channel * 90 + y) % 256;
             });
             load(screen, fakes, fading, ImageFormat::png);
             apply(screen, fakes);
             screen.press("Save As...");
             fakes.panels.choose("/converted.png");
         }},
    };
}

} // namespace korvane
