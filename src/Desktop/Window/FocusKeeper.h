/// Sees to it that the keyboard focus is never lost: when the control that has it is hidden or disabled, the
/// nearest one takes over. It does not decide where the Tab key goes.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace korvane {

class FocusKeeper final : public QObject {
public:
    using QObject::QObject;

    /// Gives the focus of `lost`, a control in `part` that has it and can no longer use it, to the nearest
    /// control of that part; returns whether there is one. A control that was only disabled, as a button is
    /// while it is busy, gets the focus back when it is enabled, unless a key was pressed meanwhile.
    bool handOn(QWidget* lost, QWidget* part);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void await(QWidget* lost, QWidget* heir);
    void forget();

    QPointer<QWidget> m_lost;
    QPointer<QWidget> m_heir; ///< has the focus in place of the lost one
};

} // namespace korvane
