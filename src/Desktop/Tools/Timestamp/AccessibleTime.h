/// The accessible interface of a time field: its text, and the minutes since midnight as its value. Qt's own
/// interface exposes only the year, month and day of a date as values.
#pragma once

class QAccessibleInterface;
class QLineEdit;
class QTimeEdit;

namespace korvane {

/// `field` is the part of `edit` that shows the text.
QAccessibleInterface* newTimeInterface(QTimeEdit* edit, QLineEdit* field);

} // namespace korvane
