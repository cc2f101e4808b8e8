#include "Images/JPEG.h"

#include <algorithm>
#include <csetjmp>
#include <cstddef>
#include <cstdio> // the decoder's header needs it

#include <jpeglib.h>

#include <jerror.h> // its numbers depend on what the header above defines

namespace korvane::JPEG {

namespace {

/// A progressive picture has about ten scans. A small file with thousands would occupy the decoder for long.
constexpr int maxScans = 200;

/// Whether the warning means that the decoder replaced missing picture data. Other warnings concern ignored
/// bytes and parameters.
bool isAboutPictureData(int warning) {
    switch (warning) {
    case JWRN_HIT_MARKER:
    case JWRN_HUFF_BAD_CODE:
    case JWRN_ARITH_BAD_CODE:
    case JWRN_MUST_RESYNC:
        return true;
    default:
        return false;
    }
}

class Decoding {
public:
    explicit Decoding(const std::stop_token& stop) : m_stop(stop) {
        m_file.err = jpeg_std_error(&m_errors);
        m_file.client_data = this;
        m_errors.error_exit = [](j_common_ptr file) { of(file).fail(); };
        m_errors.emit_message = [](j_common_ptr file, int level) { of(file).recordWarning(level); };
        m_errors.output_message = [](j_common_ptr) {};
        m_progress.progress_monitor = [](j_common_ptr file) { of(file).checkProgress(); };
    }

    Decoding(const Decoding&) = delete;
    Decoding& operator=(const Decoding&) = delete;

    ~Decoding() { jpeg_destroy_decompress(&m_file); }

    /// Whether the picture is complete. Local variables must not have destructors: a failure jumps past them.
    bool isComplete(std::string_view bytes) {
        if (setjmp(m_failure) != 0)
            return false;
        jpeg_create_decompress(&m_file);
        m_file.progress = &m_progress;
        jpeg_mem_src(&m_file, reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
        jpeg_read_header(&m_file, TRUE);
        m_file.scale_num = 1;
        m_file.scale_denom = 8;
        jpeg_start_decompress(&m_file);
        const auto rowBytes = m_file.output_width * static_cast<JDIMENSION>(m_file.output_components);
        auto* row =
            m_file.mem->alloc_sarray(reinterpret_cast<j_common_ptr>(&m_file), JPOOL_IMAGE, rowBytes, 1);
        while (m_file.output_scanline < m_file.output_height)
            jpeg_read_scanlines(&m_file, row, 1);
        const bool hasScans = hasAllScans();
        jpeg_finish_decompress(&m_file);
        // With arithmetic coding, truncated scans cannot be detected.
        return hasScans && !m_isDamaged && !(m_isCutOff && m_file.arith_code);
    }

private:
    static Decoding& of(j_common_ptr file) { return *static_cast<Decoding*>(file->client_data); }

    [[noreturn]] void fail() { std::longjmp(m_failure, 1); }

    void recordWarning(int level) {
        constexpr int warning = -1; // levels above are for tracing
        if (level != warning)
            return;
        m_isDamaged = m_isDamaged || isAboutPictureData(m_errors.msg_code);
        m_isCutOff = m_isCutOff || m_errors.msg_code == JWRN_JPEG_EOF;
    }

    void checkProgress() {
        if (m_stop.stop_requested() || m_file.input_scan_number > maxScans)
            fail();
    }

    /// Whether no scan is missing: a file may end between two scans.
    bool hasAllScans() const {
        const auto count = static_cast<std::size_t>(m_file.num_components);
        for (std::size_t i = 0; i < count; ++i) {
            if (!m_file.comp_info[i].quant_table) // never seen in a scan
                return false;
            const auto isExact = [](int missingBits) { return missingBits == 0; };
            if (m_isCutOff && m_file.progressive_mode && !std::ranges::all_of(m_file.coef_bits[i], isExact))
                return false;
        }
        return true;
    }

    const std::stop_token& m_stop;
    jpeg_error_mgr m_errors{};
    jpeg_progress_mgr m_progress{};
    jpeg_decompress_struct m_file{};
    std::jmp_buf m_failure{};
    bool m_isDamaged = false;
    bool m_isCutOff = false;
};

} // namespace

bool isComplete(std::string_view bytes, const std::stop_token& stop) {
    return Decoding(stop).isComplete(bytes);
}

} // namespace korvane::JPEG
