#include "backends/egl/detail/Display.h"

#include "foundation/core/Exception.h"

#include <epoxy/egl.h>

#include <array>
#include <cstring>
#include <vector>

namespace nurel::egl {

namespace {

bool hasExtension(EGLDisplay display, const char *name) {
    const char *list = eglQueryString(display, EGL_EXTENSIONS);
    if (!list)
        return false;
    const std::size_t length = std::strlen(name);
    for (const char *found = std::strstr(list, name); found; found = std::strstr(found + length, name)) {
        const bool begins = found == list || found[-1] == ' ';
        const bool ends = found[length] == ' ' || found[length] == '\0';
        if (begins && ends)
            return true;
    }
    return false;
}

/// In order: no surfaces at all, each graphics device, the default display.
std::vector<EGLDisplay> listDisplays() {
    std::vector<EGLDisplay> displays;
    const bool platforms = hasExtension(EGL_NO_DISPLAY, "EGL_EXT_platform_base");
    if (platforms && hasExtension(EGL_NO_DISPLAY, "EGL_MESA_platform_surfaceless"))
        displays.push_back(eglGetPlatformDisplayEXT(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr));
    if (platforms && hasExtension(EGL_NO_DISPLAY, "EGL_EXT_platform_device") &&
        hasExtension(EGL_NO_DISPLAY, "EGL_EXT_device_enumeration")) {
        std::array<EGLDeviceEXT, 16> devices{};
        EGLint count = 0;
        if (eglQueryDevicesEXT(static_cast<EGLint>(devices.size()), devices.data(), &count)) {
            for (EGLint i = 0; i < count; ++i)
                displays.push_back(
                    eglGetPlatformDisplayEXT(EGL_PLATFORM_DEVICE_EXT, devices[static_cast<std::size_t>(i)], nullptr));
        }
    }
    displays.push_back(eglGetDisplay(EGL_DEFAULT_DISPLAY));
    return displays;
}

} // namespace

Display::Display(bool es) {
    const char *const wanted = es ? "OpenGL ES 3.0" : "OpenGL 3.3";
    if (!epoxy_has_egl())
        throw ::core::IllegalStateException("Cannot draw off-screen: there is no EGL library");
    for (EGLDisplay display : listDisplays()) {
        if (display != EGL_NO_DISPLAY && open(display, es))
            return;
        close();
    }
    throw ::core::IllegalStateException("Cannot draw off-screen: no EGL display offers %s (%s)", wanted,
                                        mReason.empty() ? "there is none" : mReason.c_str());
}

Display::~Display() {
    close();
}

bool Display::open(void *display, bool es) {
    EGLint major = 0;
    EGLint minor = 0;
    if (!eglInitialize(display, &major, &minor)) {
        mReason = "it cannot be initialised";
        return false;
    }
    mDisplay = display;
    const bool surfaceless = hasExtension(display, "EGL_KHR_surfaceless_context");
    const EGLint configAttributes[] = {EGL_RENDERABLE_TYPE, es ? EGL_OPENGL_ES3_BIT : EGL_OPENGL_BIT, EGL_SURFACE_TYPE,
                                       surfaceless ? 0 : EGL_PBUFFER_BIT, EGL_NONE};
    EGLConfig config = nullptr;
    EGLint count = 0;
    if (!eglBindAPI(es ? EGL_OPENGL_ES_API : EGL_OPENGL_API) ||
        !eglChooseConfig(display, configAttributes, &config, 1, &count) || count == 0) {
        mReason = "it has no such configuration";
        return false;
    }
    const EGLint esAttributes[] = {EGL_CONTEXT_MAJOR_VERSION_KHR, 3, EGL_CONTEXT_MINOR_VERSION_KHR, 0, EGL_NONE};
    const EGLint desktopAttributes[] = {EGL_CONTEXT_MAJOR_VERSION_KHR,
                                        3,
                                        EGL_CONTEXT_MINOR_VERSION_KHR,
                                        3,
                                        EGL_CONTEXT_OPENGL_PROFILE_MASK_KHR,
                                        EGL_CONTEXT_OPENGL_CORE_PROFILE_BIT_KHR,
                                        EGL_NONE};
    mContext = eglCreateContext(display, config, EGL_NO_CONTEXT, es ? esAttributes : desktopAttributes);
    if (mContext == EGL_NO_CONTEXT) {
        mReason = "it cannot make a context";
        return false;
    }
    const EGLint surfaceAttributes[] = {EGL_WIDTH, 1, EGL_HEIGHT, 1, EGL_NONE};
    if (!surfaceless)
        mSurface = eglCreatePbufferSurface(display, config, surfaceAttributes);
    if (!eglMakeCurrent(display, mSurface, mSurface, mContext)) {
        mReason = "its context cannot be made current";
        return false;
    }
    return true;
}

void Display::makeCurrent() {
    if (!eglMakeCurrent(mDisplay, mSurface, mSurface, mContext))
        throw ::core::IllegalStateException("The off-screen context cannot be made current");
}

void Display::close() {
    if (!mDisplay)
        return;
    eglMakeCurrent(mDisplay, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
    if (mContext)
        eglDestroyContext(mDisplay, mContext);
    if (mSurface)
        eglDestroySurface(mDisplay, mSurface);
    eglTerminate(mDisplay);
    mDisplay = mSurface = mContext = nullptr;
}

} // namespace nurel::egl
