#pragma once

#include <string>

namespace nurel::egl {

/// An EGL display with a context on it that needs no window. The handles are EGL's pointers, whose header stays in the
/// source.
class Display {
public:
    /// Goes through the displays that could do and takes the first that gives a context, which is current then.
    explicit Display(bool es);
    ~Display();
    Display(const Display &) = delete;
    Display &operator=(const Display &) = delete;

    void makeCurrent();

private:
    bool open(void *display, bool es);
    void close();

    void *mDisplay = nullptr;
    void *mSurface = nullptr; ///< null where EGL can do without
    void *mContext = nullptr;
    std::string mReason; ///< why the last display would not do
};

} // namespace nurel::egl
