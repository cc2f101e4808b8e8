/// The services of the running program: the system's clipboard and the event loop's timers.
#pragma once

#include "Views/Services.h"

namespace korvane {

class ServicesQt {
public:
    Services& services() { return m_services; }

private:
    class ClipboardQt final : public Clipboard {
    public:
        std::optional<std::string> text() const override;
        void setText(std::string_view text) override;
    };

    class TimersQt final : public Timers {
    public:
        void after(std::chrono::milliseconds delay, std::function<void()> action) override;
    };

    ClipboardQt m_clipboard;
    TimersQt m_timers;
    NotificationCenter m_notifications;
    Services m_services{m_clipboard, m_timers, m_notifications};
};

} // namespace korvane
