#include "Desktop/Tools/Image/MenuPicker.h"

#include "Desktop/Access/AccessibleRows.h"
#include "Desktop/Binding/Store.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Look/FocusRing.h"
#include "Desktop/Look/Glyph.h"
#include "Desktop/Look/Surface.h"
#include "Desktop/Look/Theme.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QPointer>
#include <QStandardItemModel>
#include <QWheelEvent>

namespace korvane {

using Theme::Role;
using Theme::Size;

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int pickerHeight = 28;
constexpr int leftPadding = 10;
constexpr int rightPadding = 8;
constexpr int glyphSize = 11;

/// A combo box for keyboard and assistive technology, whose list is shown as a menu.
class MenuPicker final : public QComboBox, public AccessibleRows {
public:
    explicit MenuPicker(int width) {
        setFixedSize(Theme::px(width), Theme::px(pickerHeight));
        setFocusPolicy(Qt::TabFocus);
        setAttribute(Qt::WA_Hover);
        giveFocusRing(this, this, Size::radiusSmall);
    }

    void showPopup() override {
        if (m_menu)
            return;
        m_menu = new QMenu(this);
        m_menu->setAttribute(Qt::WA_DeleteOnClose);
        m_menu->setMinimumWidth(width());
        for (int index = 0; index < count(); ++index) {
            auto* choice =
                m_menu->addAction(entryText(index), this, [this, index] { setCurrentIndex(index); });
            choice->setEnabled(obstacle(index).isEmpty());
            if (index == currentIndex())
                m_menu->setActiveAction(choice);
        }
        m_menu->popup(mapToGlobal(QPoint(0, height())));
    }

    void hidePopup() override {
        if (m_menu)
            m_menu->close();
        QComboBox::hidePopup();
    }

    // The choices are exposed as rows; Qt would use the name of the chosen one as the accessible name.

    QWidget* rowsWidget() override { return this; }

    QAccessible::Role accessibleRole() const override { return QAccessible::ComboBox; }

    int accessibleRowCount() const override { return count(); }

    AccessibleRow accessibleRow(int row) const override {
        return {.name = entryText(row),
                .isSelected = row == currentIndex(),
                .isEnabled = obstacle(row).isEmpty()};
    }

    int accessibleCurrentRow() const override { return -1; } // the picker itself has the focus

    QRect accessibleRowPlace(int) const override { return {mapToGlobal(QPoint()), size()}; }

    int accessibleRowAt(QPoint) const override { return currentIndex(); }

    bool canPressRows() const override { return true; }

    void pressRow(int row) override { setCurrentIndex(row); }

    void focusRow(int) override { setFocus(Qt::OtherFocusReason); }

    /// Disables the choice and shows why; an empty text enables it.
    void setObstacle(int index, const QString& obstacle) {
        setItemData(index, obstacle, obstacleRole);
        // Makes the arrow keys skip the choice.
        static_cast<QStandardItemModel*>(model())->item(index)->setEnabled(obstacle.isEmpty());
    }

protected:
    /// Return acts like Space, which Qt handles.
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
            showPopup();
        else
            QComboBox::keyPressEvent(event);
    }

    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        if (!isEnabled())
            painter.setOpacity(Theme::disabledOpacity);
        const auto fill = m_menu         ? Role::controlPressed
                          : underMouse() ? Role::controlHover
                                         : Role::controlFill;
        paintSurface(painter, rect(), Theme::px(Size::radiusSmall), Theme::color(fill),
                     Theme::color(Role::outline));
        const auto glyph = Theme::px(glyphSize);
        const auto right = width() - Theme::px(rightPadding);
        Glyph::paint(painter, "menu.chevrons", QRectF(right - glyph, (height() - glyph) / 2.0, glyph, glyph),
                     Theme::color(Role::secondary));
        painter.setFont(Theme::font(Theme::TextStyle::body));
        painter.setPen(Theme::color(Role::primary));
        const auto left = Theme::px(leftPadding);
        painter.drawText(QRect(left, 0, right - glyph - left, height()), Qt::AlignVCenter | Qt::AlignLeft,
                         currentText());
    }

    /// The wheel scrolls the screen and must not change the choice.
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }

private:
    static constexpr int obstacleRole = Qt::UserRole;

    QString obstacle(int index) const { return itemData(index, obstacleRole).toString(); }

    QString entryText(int index) const {
        return obstacle(index).isEmpty() ? itemText(index)
                                         : QStringLiteral("%1 (%2)").arg(itemText(index), obstacle(index));
    }

    QPointer<QMenu> m_menu;
};

} // namespace

QWidget* menuPicker(Store& store, std::string_view name, const std::vector<std::string>& titles,
                    const Reader<std::size_t>& chosen, const Action<std::size_t>& choose, int width,
                    const std::optional<Reader<Obstacles>>& obstacles) {
    auto* picker = new MenuPicker(width);
    picker->setAccessibleName(qString(name));
    for (const auto& title : titles)
        picker->addItem(qString(title));
    QObject::connect(picker, &QComboBox::currentIndexChanged, picker,
                     [choose = choose.on(store)](int index) { choose(static_cast<std::size_t>(index)); });
    const auto readObstacles = obstacles ? obstacles->of(store) : [] { return Obstacles(); };
    store.onRefresh([picker, chosen = chosen.of(store), readObstacles] {
        int index = 0;
        for (const auto& obstacle : readObstacles())
            picker->setObstacle(index++, qString(obstacle));
        picker->setCurrentIndex(static_cast<int>(chosen()));
        if (picker->accessibleDescription() != picker->currentText())
            picker->setAccessibleDescription(picker->currentText());
    });
    return picker;
}

} // namespace korvane
