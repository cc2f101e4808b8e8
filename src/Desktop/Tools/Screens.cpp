#include "Desktop/Tools/Screens.h"

namespace korvane {

QWidget* toolScreen(Tool tool, Services& services) {
    switch (tool) {
    case Tool::jsonFormatter:
        return jsonFormatterScreen(services);
    case Tool::base64:
        return base64Screen(services);
    case Tool::urlEncoder:
        return urlEncoderScreen(services);
    case Tool::jwtDecoder:
        return jwtDecoderScreen(services);
    case Tool::hashGenerator:
        return hashGeneratorScreen(services);
    case Tool::uuidGenerator:
        return uuidGeneratorScreen(services);
    case Tool::timestamp:
        return timestampScreen(services);
    case Tool::regexTester:
        return regexTesterScreen(services);
    case Tool::colorPicker:
        return colorPickerScreen(services);
    case Tool::textDiff:
        return textDiffScreen(services);
    case Tool::textTransformer:
        return textTransformerScreen(services);
    case Tool::numberBase:
        return numberBaseScreen(services);
    case Tool::loremIpsum:
        return loremIpsumScreen(services);
    case Tool::passwordGenerator:
        return passwordGeneratorScreen(services);
    case Tool::markdownPreview:
        return markdownPreviewScreen(services);
    case Tool::imageConverter:
        return imageConverterScreen(services);
    }
    return nullptr;
}

} // namespace korvane
