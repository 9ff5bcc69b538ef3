#pragma once

/// Forward declarations of the value types, for headers that only point at them.
namespace nurel::math {

class Frustum;
class Matrix3;
class Matrix4;
class Quaternion;
class Vector2;
class Vector3;
class Vector4;
class ViewPort;

} // namespace nurel::math
