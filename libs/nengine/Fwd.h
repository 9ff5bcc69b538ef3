#pragma once

#include "nmain/core/Fwd.h"

/// Forward declarations of the engine layer's classes, for headers that only point at them.

namespace nurel {

class Engine;
struct EngineConfig;
class EngineFactory;

namespace geometry {
class LocalGeometry;
class MeshData;
class MeshDataAllocator;
class MeshDataCO;
class MeshGeometry;
} // namespace geometry

namespace texture {
class Atlas;
class RenderData;
class Stage;
class Texture;
class TexturePool;
} // namespace texture

namespace font {
class Font;
class FontManager;
} // namespace font

namespace scene {
class Camera;
class Culler;
struct DrawContext;
class Frame;
class HandledObject;
class Mesh;
class Node;
class ObjectHandler;
class Property;
class PropertyCO;
class PropertySet;
class VisibilitySet;
namespace handlers {
class BlinkHandler;
class TimeBasedHandler;
} // namespace handlers
namespace meshes {
class BorderedRectangleMesh;
class SizeableRectangleMesh;
class TextMesh;
class TriangleMesh;
} // namespace meshes
namespace properties {
class AlphaProperty;
class DepthProperty;
class MaterialProperty;
class StencilProperty;
class TextureProperty;
} // namespace properties
} // namespace scene

namespace renderer {
class Backend;
class FrameBuffer;
class RecordingBackend;
class RenderPass;
class RenderView;
class Renderer;
class Sorter;
class TaskQueue;
struct DrawCommand;
struct DrawList;
struct DrawVertex;
struct FrameStatistics;
struct FrameTarget;
struct ResizeEventData;
struct ScreenSettings;
} // namespace renderer

} // namespace nurel
