/// A button over the corner of a panel.
#pragma once

class QWidget;

namespace korvane {

/// `button` over the top right corner of `panel`. The name of the whole is applied to both (`Named`).
QWidget* overlay(QWidget* panel, QWidget* button);

} // namespace korvane
