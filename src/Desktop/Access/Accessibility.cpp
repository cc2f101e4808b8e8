#include "Desktop/Access/Accessibility.h"

#include "Desktop/Access/AccessibleButton.h"
#include "Desktop/Access/TabStops.h"
#include "Desktop/Binding/Store.h"
#include "Desktop/Binding/Strings.h"

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QPushButton>
#include <QSplitterHandle>
#include <QTimer>
#include <QToolButton>

#include <chrono>
#include <optional>
#include <utility>

namespace korvane {

namespace {

/// The latest announcement of a window: an invisible notification, which screen readers read out when it is
/// reported as shown. It is deleted after `lifetime`, so that users who explore the window later find only
/// current content.
class Announcer final : public QWidget, public AccessibleControl {
public:
    explicit Announcer(QWidget* window) : QWidget(window) {
        setFixedSize(0, 0);
        m_expiry.setSingleShot(true);
        m_expiry.setInterval(lifetime);
        connect(&m_expiry, &QTimer::timeout, this, [this] {
            hide();
            deleteLater();
        });
    }

    void say(const QString& text) {
        m_expiry.start();
        setAccessibleName(text);
        if (!isVisible()) {
            show(); // reports it as shown
            return;
        }
        QAccessibleEvent event(this, QAccessible::ObjectShow);
        QAccessible::updateAccessibility(&event);
    }

    QAccessibleInterface* newAccessibleInterface() override {
        return new QAccessibleWidget(this, QAccessible::Notification);
    }

private:
    /// Screen readers request the text after the event, which may be late on a busy machine.
    static constexpr std::chrono::seconds lifetime{3};

    QTimer m_expiry{this};
};

Announcer* announcerOf(QWidget* window) {
    for (auto* child : window->children()) {
        if (auto* announcer = dynamic_cast<Announcer*>(child))
            return announcer;
    }
    return new Announcer(window);
}

/// A container with a focus proxy. Qt would report both as focused.
class ContainerInterface final : public QAccessibleWidget {
public:
    explicit ContainerInterface(QWidget* container) : QAccessibleWidget(container) {}

    QAccessible::State state() const override {
        auto state = QAccessibleWidget::state();
        if (widget()->focusProxy()) {
            state.focusable = false;
            state.focused = false;
        }
        return state;
    }
};

/// Qt's dialogs have buttons of these two classes, the shared controls have none.
bool isQtButton(const QAbstractButton* button) {
    return qobject_cast<const QPushButton*>(button) || qobject_cast<const QToolButton*>(button);
}

QAccessibleInterface* newInterface(const QString&, QObject* object) {
    if (auto* control = dynamic_cast<AccessibleControl*>(object))
        return control->newAccessibleInterface();
    if (auto* button = qobject_cast<QAbstractButton*>(object); button && !isQtButton(button))
        return newButtonInterface(button);
    if (auto* handle = qobject_cast<QSplitterHandle*>(object))
        return new QAccessibleWidget(handle, QAccessible::Separator);
    if (object->metaObject() == &QWidget::staticMetaObject)
        return new ContainerInterface(static_cast<QWidget*>(object));
    return nullptr; // Qt's default is sufficient
}

} // namespace

void installAccessibility() {
    QAccessible::installFactory(newInterface);
}

void setAccessibleName(QWidget& widget, const QString& name) {
    if (name != widget.accessibleName())
        widget.setAccessibleName(name);
}

void giveName(QWidget& part, const std::string& name) {
    if (auto* named = dynamic_cast<Named*>(&part))
        named->setName(name);
    else
        setAccessibleName(*focusTarget(&part), qString(name));
}

void setAccessibleDescription(QWidget& widget, const std::string& description) {
    if (const auto text = qString(description); text != widget.accessibleDescription())
        widget.setAccessibleDescription(text);
}

void announce(const QWidget& source, const QString& text) {
    announcerOf(source.window())->say(text);
}

void announceChanges(Store& store, const QWidget& source, const Reader<std::string>& text) {
    store.onNewText(text.of(store),
                    [&source](const std::string& current) { announce(source, qString(current)); });
}

} // namespace korvane
