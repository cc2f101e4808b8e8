/// The services of the running program: the system's clipboard, clock, files and browser, the event loop's
/// timers, and a thread pool.
#pragma once

#include "Utilities/Images/ImageProcess.h"
#include "Utilities/LinkOpener.h"
#include "Views/Services.h"

#include <QThreadPool>

namespace korvane {

class ServicesQt {
public:
    /// `opener` outlives the services.
    explicit ServicesQt(const LinkOpener& opener) : m_browser(opener) {}

    Services& services() { return m_services; }

private:
    class ClipboardQt final : public Clipboard {
    public:
        std::optional<Rope> text() const override;
        void setText(const Rope& text) override;
        void setSecret(std::string_view text) override;
    };

    class ClockQt final : public Clock {
    public:
        std::chrono::system_clock::time_point now() const override {
            return std::chrono::system_clock::now();
        }
    };

    class TimersQt final : public Timers {
    public:
        void after(std::chrono::milliseconds delay, std::function<void()> action) override;
    };

    /// Its destructor waits for the threads. The screens are destroyed earlier and have cancelled their work.
    class BackgroundQt final : public Background {
    public:
        void run(std::function<void()> work, std::function<void()> done) override;

    private:
        QThreadPool m_threads;
    };

    class BrowserQt final : public Browser {
    public:
        explicit BrowserQt(const LinkOpener& opener) : m_opener(opener) {}

        void open(std::string_view url) override;

    private:
        const LinkOpener& m_opener;
    };

    class FilesQt final : public Files {
    public:
        std::expected<SharedBytes, std::string> read(const std::string& path,
                                                     std::size_t maxBytes) const override;
        std::expected<void, std::string> write(const std::string& path, std::string_view bytes) override;
    };

    class FilePanelsQt final : public FilePanels {
    public:
        void open(const FileKind& kind, Chosen chosen) override;
        void save(const FileKind& kind, const std::string& proposedName, Chosen chosen) override;

    private:
        void confirmReplacing(const std::string& path, const FileKind& kind, const Chosen& chosen);
    };

    class ImagesQt final : public Images {
    public:
        explicit ImagesQt(Background& background) : m_background(background) {}

        std::shared_ptr<ImageProcess> process() override;

    private:
        Background& m_background;
        std::weak_ptr<ImageProcess> m_process;
    };

    ClipboardQt m_clipboard;
    ClockQt m_clock;
    TimersQt m_timers;
    BackgroundQt m_background;
    BrowserQt m_browser;
    NotificationCenter m_notifications;
    FilesQt m_files;
    FilePanelsQt m_panels;
    ImagesQt m_images{m_background};
    Services m_services{m_clipboard,     m_clock, m_timers, m_background, m_browser,
                        m_notifications, m_files, m_panels, m_images};
};

} // namespace korvane
