/// How the kit's buttons, switches and segments present themselves to assistive technology, and answer it.
#pragma once

class QAbstractButton;
class QAccessibleInterface;

namespace korvane {

QAccessibleInterface* newButtonInterface(QAbstractButton* button);

} // namespace korvane
