#pragma once

namespace veldraw::tests {

/// A small data set in the kernel's one session, with two static zones, a time strand of three, and four variables, for
/// its life.
class GalleryData
{
public:
    GalleryData();
    ~GalleryData();
    GalleryData(GalleryData const&) = delete;
    GalleryData& operator=(GalleryData const&) = delete;
};

} // namespace veldraw::tests
