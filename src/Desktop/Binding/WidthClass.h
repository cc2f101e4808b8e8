/// Whether a screen is narrow, for controls that then become more compact.
#pragma once

#include <QObject>

namespace korvane {

class WidthClass final : public QObject {
    Q_OBJECT

public:
    bool isNarrow() const { return m_isNarrow; }

    void setNarrow(bool isNarrow) {
        if (isNarrow == m_isNarrow)
            return;
        m_isNarrow = isNarrow;
        emit changed(isNarrow);
    }

signals:
    void changed(bool isNarrow);

private:
    bool m_isNarrow = false;
};

} // namespace korvane
