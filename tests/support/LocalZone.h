/// Sets the time zone for a test.
#pragma once

#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>

namespace korvane {

/// Sets the local time zone to one of the IANA database during its lifetime.
class LocalZone {
public:
    explicit LocalZone(const char* name) {
        if (const char* before = std::getenv("TZ"))
            m_before = before;
        setenv("TZ", name, 1);
        tzset();
    }

    ~LocalZone() {
        if (m_before)
            setenv("TZ", m_before->c_str(), 1);
        else
            unsetenv("TZ");
        tzset();
    }

    LocalZone(const LocalZone&) = delete;
    LocalZone& operator=(const LocalZone&) = delete;

private:
    std::optional<std::string> m_before{};
};

} // namespace korvane
