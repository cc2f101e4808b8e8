#include "Desktop/Tools/Image/DropTarget.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QMimeData>
#include <QUrl>

namespace korvane {
namespace {

TEST(DropTarget, AcceptsThePathsOfLocalFiles) {
    QMimeData data;
    data.setUrls({QUrl("https://example.org/a.png"), QUrl("file:///tmp/two%20words.png"),
                  QUrl::fromLocalFile(QStringLiteral("/tmp/Größe ⚓.jpg"))});
    data.setData("image/png", "bytes");
    const auto items = droppedItems(data);
    EXPECT_EQ(items.files, (std::vector<std::string>{"/tmp/two words.png", "/tmp/Größe ⚓.jpg"}));
    EXPECT_EQ(items.data.view(), "") << "files take precedence";
}

TEST(DropTarget, AcceptsTheDataOfAPicture) {
    QMimeData data;
    data.setData("image/jpeg", "the bytes of a JPEG");
    EXPECT_EQ(droppedItems(data).data.view(), "the bytes of a JPEG");
    QMimeData image;
    image.setImageData(QImage(3, 2, QImage::Format_RGB32));
    EXPECT_EQ(droppedItems(image).data.view().substr(1, 3), "PNG");
    QMimeData page;
    page.setUrls({QUrl("https://example.org/a.png")});
    page.setText("words");
    EXPECT_TRUE(droppedItems(page).files.empty());
    EXPECT_EQ(droppedItems(page).data.view(), "");
}

} // namespace
} // namespace korvane
