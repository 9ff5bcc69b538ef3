#pragma once

/// Makes the names of the two namespaces `core` one set. Code inside `nurel` that writes core::X finds the classes of
/// nurel::core first and the foundation's after them; code outside finds the foundation's and, through the declarations
/// below, the object model's. nurel::core::Object and ::core::Object are one class.
namespace core {}

namespace nurel::core {

using namespace ::core;

class CloningOptions;
class NamedObject;
class Object;
class Serializable;
template <class T>
class ObjectFactory;

} // namespace nurel::core

namespace core {

using nurel::core::CloningOptions;
using nurel::core::NamedObject;
using nurel::core::Object;
using nurel::core::ObjectFactory;
using nurel::core::Serializable;

} // namespace core
