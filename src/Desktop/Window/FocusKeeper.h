/// Keeps the keyboard focus in the screen: when the focused control is hidden or disabled, the nearest one
/// gets the focus. Does not determine the order of the Tab key.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace korvane {

class FocusKeeper final : public QObject {
public:
    using QObject::QObject;

    /// Moves the focus from `lost`, a control in `part` that can no longer use it, to the nearest control of
    /// that part; returns whether there is one. If `lost` was only disabled, as a busy button is, it gets the
    /// focus back when it is enabled, unless a key was pressed meanwhile.
    bool moveFocusFrom(QWidget* lost, QWidget* part);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void watch(QWidget* lost, QWidget* successor);
    void stopWatching();

    QPointer<QWidget> m_lost;
    QPointer<QWidget> m_successor; ///< has the focus instead of `m_lost`
};

} // namespace korvane
