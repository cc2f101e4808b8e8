/// How a field for a time presents itself to assistive technology: its text as it is shown, and the minutes
/// since midnight as its value. The toolkit's interface knows no value but the year, month and day of a date.
#pragma once

class QAccessibleInterface;
class QLineEdit;
class QTimeEdit;

namespace korvane {

/// `field` is the part of `edit` that shows the text.
QAccessibleInterface* newTimeInterface(QTimeEdit* edit, QLineEdit* field);

} // namespace korvane
