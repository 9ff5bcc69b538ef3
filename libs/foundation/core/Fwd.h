#pragma once

/// Forward declarations of the ground floor's classes, for headers that only point at them.
namespace core {

class CriticalSection;
class Event;
class Exception;
class GenericProcess;
class IOException;
class IRefCount;
class IllegalArgumentException;
class IllegalStateException;
class Lock;
class Process;
class Runnable;
class Timer;
class Type;
template <class T>
class Future;
template <class T>
class SmartPtr;

} // namespace core
