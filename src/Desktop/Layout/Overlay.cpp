#include "Desktop/Layout/Overlay.h"

#include "Desktop/Access/Accessibility.h"
#include "Desktop/Look/Theme.h"

#include <QEvent>
#include <QLayout>
#include <QWidget>

#include <string>

namespace korvane {

namespace {

constexpr int overlayInset = 8;

class Overlay final : public QWidget, public Named {
public:
    Overlay(QWidget* panel, QWidget* button) : m_panel(panel), m_button(button) {
        setSizePolicy(panel->sizePolicy());
        setFocusProxy(panel);
        panel->setParent(this);
        button->setParent(this);
    }

    QSize sizeHint() const override { return m_panel->sizeHint(); }

    QSize minimumSizeHint() const override { return m_panel->minimumSizeHint(); }

    void setName(const std::string& name) override {
        giveName(*m_panel, name);
        giveName(*m_button, name);
    }

protected:
    void resizeEvent(QResizeEvent*) override { place(); }

    bool event(QEvent* event) override {
        if (event->type() == QEvent::LayoutRequest) {
            place();
            updateGeometry(); // the height of the panel may have changed
        }
        return QWidget::event(event);
    }

private:
    void place() {
        m_panel->setGeometry(rect());
        if (auto* layout = m_panel->layout())
            layout->activate();
        const auto size = m_button->sizeHint();
        const auto inset = Theme::px(overlayInset);
        m_button->setGeometry(width() - inset - size.width(), contentTop() + inset, size.width(),
                              size.height());
        m_button->raise();
    }

    /// The height of what a panel has above its content.
    int contentTop() const {
        const auto* content = m_panel->focusProxy();
        const bool isInPanel = content && content->parentWidget() == m_panel;
        return isInPanel ? content->y() - Theme::Size::panelOutline : 0;
    }

    QWidget* m_panel;
    QWidget* m_button;
};

} // namespace

QWidget* overlay(QWidget* panel, QWidget* button) {
    return new Overlay(panel, button);
}

} // namespace korvane
