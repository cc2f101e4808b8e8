/// The fixture of the tests of the image screen's state: a state, its services, and a picture.
#pragma once

#include "Views/Tools/ImageConverterView.h"

#include "support/FakeServices.h"
#include "support/Pictures.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>

namespace korvane {

inline ImageProcess& imageProcess() {
    return *FakeImages::shared();
}

/// The picture in a file.
inline Image decoded(const std::string& file) {
    return imageProcess().decode(SharedBytes::copyOf(file)).value();
}

struct ImageConverterViewTest : ::testing::Test {
    FakeServices fakes{};
    std::optional<ImageConverterView> state{ImageConverterView{}};
    Context<ImageConverterView> context{fakes.services,
                                        [this](const std::function<void(ImageConverterView&)>& change) {
                                            if (state)
                                                change(*state);
                                        }};
    Image picture = support::distinctPicture({40, 30});
    SharedBytes file = imageProcess().convert(picture, ImageFormat::png, 1).value();

    void load() {
        state->loadImage(file, context);
        fakes.background.runAll();
    }

    void apply() {
        state->applyTransforms(context);
        fakes.background.runAll();
    }

    void saveAs(const std::string& path) {
        state->saveImage(context);
        fakes.panels.choose(path);
        fakes.background.runAll();
    }
};

} // namespace korvane
