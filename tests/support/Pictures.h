/// Small pictures for tests.
#pragma once

#include "Utilities/ImageConverter.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace korvane::support {

/// A picture whose samples are computed by `sample` for each position and channel.
Image picture(ImageSize size, int channels, int bytesPerSample,
              const std::function<int(int x, int y, int channel)>& sample);

/// A picture without symmetry, in which adjacent pixels differ.
Image distinctPicture(ImageSize size, int channels = 3, int bytesPerSample = 1);

/// A picture of one colour.
Image plainPicture(ImageSize size, const std::vector<int>& color);

/// A smooth picture with some detail, as a photograph has.
Image photograph(ImageSize size);

int sampleAt(const Image& image, int x, int y, int channel);

/// All samples of a pixel.
std::vector<int> pixelAt(const Image& image, int x, int y);

/// The largest difference between two samples in the same place, of pictures of one shape.
int largestDifference(const Image& one, const Image& other);

/// Whether both have the same shape and the same samples.
bool haveSamePixels(const Image& one, const Image& other);

} // namespace korvane::support
