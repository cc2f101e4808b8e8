/// A status badge that leads to the place that its message names.
#pragma once

#include "Desktop/Access/Accessibility.h"
#include "Views/Components/StatusBadge.h"

#include <QAbstractButton>
#include <QTextLayout>

#include <memory>

namespace korvane {

class BadgeLink final : public QAbstractButton, public AccessibleControl {
public:
    BadgeLink();

    void display(const StatusBadge& badge);

    QAccessibleInterface* newAccessibleInterface() override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    bool hasHeightForWidth() const override { return true; }

    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    int textWidth(int width) const;
    std::unique_ptr<QTextLayout> layOut(int width) const;

    StatusBadge m_badge{};
};

} // namespace korvane
