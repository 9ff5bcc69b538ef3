#include "nengine/renderer/FrameBuffer.h"

namespace nurel::renderer {

constinit const ::core::Type FrameBuffer::TYPE("FrameBuffer", &core::Object::TYPE);

} // namespace nurel::renderer
