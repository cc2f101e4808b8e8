#include "Images/Vips.h"

namespace korvane {

namespace {

constexpr double millimetresPerInch = 25.4;

/// The library searches for plug-ins in this folder. It deliberately finds none: they would add readers for
/// dozens of unneeded formats, and take 80 ms to load.
constexpr auto folderWithoutPlugins = "/nonexistent";
constexpr auto pluginVariable = "VIPSHOME";

bool start() {
    const bool hadFolder = g_getenv(pluginVariable) != nullptr;
    if (!hadFolder)
        g_setenv(pluginVariable, folderWithoutPlugins, 1);
    const bool started = vips_init("korvane") == 0;
    if (!hadFolder)
        g_unsetenv(pluginVariable);
    if (!started)
        return false;
    vips_operation_block_set("VipsForeignLoad", 1);
    for (const auto* loader :
         {"VipsForeignLoadPng", "VipsForeignLoadJpeg", "VipsForeignLoadTiff", "VipsForeignLoadNsgif"})
        vips_operation_block_set(loader, 0);
    vips_cache_set_max(0); // it would keep pictures that are no longer used
    // The engine reports the library's errors itself; its other messages are irrelevant.
    g_log_set_handler(
        "VIPS", static_cast<GLogLevelFlags>(G_LOG_LEVEL_MASK | G_LOG_FLAG_FATAL | G_LOG_FLAG_RECURSION),
        [](const char*, GLogLevelFlags, const char*, void*) {}, nullptr);
    return true;
}

VipsInterpretation interpretation(const Image& image) {
    if (image.channels < 3)
        return image.bytesPerSample == 2 ? VIPS_INTERPRETATION_GREY16 : VIPS_INTERPRETATION_B_W;
    return image.bytesPerSample == 2 ? VIPS_INTERPRETATION_RGB16 : VIPS_INTERPRETATION_sRGB;
}

void stopComputing(VipsImage* image, VipsProgress*, const std::stop_token* stop) {
    if (stop->stop_requested())
        vips_image_set_kill(image, 1);
}

} // namespace

bool startVips() {
    static const bool started = start();
    return started;
}

vips::VImage vipsImage(const Image& image) {
    // The library's parameter is not const, but it does not write to the memory.
    auto* samples = const_cast<std::byte*>(image.samples.get());
    const auto format = image.bytesPerSample == 2 ? VIPS_FORMAT_USHORT : VIPS_FORMAT_UCHAR;
    auto picture = vips::VImage::new_from_memory(samples, image.byteCount(), image.width, image.height,
                                                 image.channels, format)
                       .copy(vips::VImage::option()
                                 ->set("interpretation", interpretation(image))
                                 ->set("xres", dotsPerMillimetre(image.horizontalDPI))
                                 ->set("yres", dotsPerMillimetre(image.verticalDPI)));
    picture.set(VIPS_META_RESOLUTION_UNIT, "in");
    if (!image.colorProfile.empty())
        vips_image_set_blob_copy(picture.get_image(), VIPS_META_ICC_NAME, image.colorProfile.data(),
                                 image.colorProfile.size());
    return picture;
}

Image computed(const vips::VImage& image, const std::stop_token& stop) {
    Image result{.width = image.width(),
                 .height = image.height(),
                 .channels = image.bands(),
                 .bytesPerSample = image.format() == VIPS_FORMAT_USHORT ? 2 : 1,
                 .horizontalDPI = dotsPerInch(image.xres()),
                 .verticalDPI = dotsPerInch(image.yres())};
    auto picture = image;
    if (stop.stop_possible()) {
        picture = image.copy();
        vips_image_set_progress(picture.get_image(), 1);
        g_signal_connect(picture.get_image(), "eval", G_CALLBACK(stopComputing),
                         const_cast<std::stop_token*>(&stop));
    }
    SharedBuffer samples;
    samples.resize(result.byteCount());
    picture.write(vips::VImage::new_from_memory(samples.data(), samples.size(), result.width, result.height,
                                                result.channels, image.format()));
    result.samples = samples.finish().samples();
    if (stop.stop_requested()) // the library may finish before its next progress report
        throw vips::VError("stopped");
    if (vips_image_get_typeof(image.get_image(), VIPS_META_ICC_NAME) != 0) {
        std::size_t size = 0;
        const auto* profile = static_cast<const char*>(image.get_blob(VIPS_META_ICC_NAME, &size));
        result.colorProfile.assign(profile, size);
    }
    return result;
}

double dotsPerInch(double dotsPerMillimetre) {
    const double resolution = dotsPerMillimetre * millimetresPerInch;
    return isValidDPI(resolution) ? resolution : defaultDPI;
}

double dotsPerMillimetre(double dotsPerInch) {
    return dotsPerInch / millimetresPerInch;
}

std::int64_t bytesPerPixel(const vips::VImage& image) {
    return static_cast<std::int64_t>(vips_format_sizeof(image.format())) * image.bands();
}

bool isWithinLimits(std::int64_t width, std::int64_t height, std::int64_t bytesPerPixel) {
    using namespace ImageConverter;
    return width > 0 && height > 0 && width <= maxPixels / height &&
           width * height <= maxBytes / bytesPerPixel;
}

VipsScope::~VipsScope() {
    vips_error_clear();
    vips_thread_shutdown();
}

} // namespace korvane
