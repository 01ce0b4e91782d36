#pragma once

namespace tarvo {

/// A place in a picture whose sides run from -1 to 1, whatever its size in pixels.
struct Point {
  double x;
  double y;
};

/// Samples across one pixel, so that edges come out smooth.
inline constexpr int kSamples = 4;
inline constexpr int kSamplesInPixel = kSamples * kSamples;

/// The place of a pixel's sample, 0 to `kSamplesInPixel` - 1, in a picture of `size` pixels.
constexpr Point SampleOf(int column, int row, int sample, int size) {
  const double step = 2.0 / (size * kSamples);
  const int across = column * kSamples + sample % kSamples;
  const int down = row * kSamples + sample / kSamples;
  return {-1 + step * (across + 0.5), -1 + step * (down + 0.5)};
}

}  // namespace tarvo
