/// A button that lies over the corner of a panel.
#pragma once

class QWidget;

namespace korvane {

/// `button` over the top right corner of `panel`. Both are named by what the whole is named (`Named`).
QWidget* overlay(QWidget* panel, QWidget* button);

} // namespace korvane
