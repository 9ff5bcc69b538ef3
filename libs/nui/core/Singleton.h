#pragma once

namespace core {

/// No locking: the singleton belongs to one thread, or is made before others use it.
struct Singleton_Singlethread_Policy {};

/// Holds the one object of a class.
template <class T, int, class Policy>
class Singleton_Base {
public:
    static bool isSingletonCreated() { return mObject != nullptr; }

protected:
    static void setObject(T *object) { mObject = object; }

    inline static T *mObject = nullptr;
};

/// Makes the object on first use.
template <class T, class Policy, int, int>
class Singleton_Middle : public Singleton_Base<T, 0, Policy> {
public:
    static T &getSingleton() { return *getSingletonPtr(); }

    /// Never null. A constructor whose work comes back here before it has ended calls setObject(this) first.
    static T *getSingletonPtr() {
        if (!Singleton_Base<T, 0, Policy>::mObject) {
            try {
                Singleton_Base<T, 0, Policy>::setObject(new T);
            } catch (...) {
                Singleton_Base<T, 0, Policy>::setObject(nullptr);
                throw;
            }
        }
        return Singleton_Base<T, 0, Policy>::mObject;
    }
};

/// A class of which there is one object, made by whoever first asks for it:
///
///     class Registry : public core::Singleton<Registry, 0, 0, core::Singleton_Singlethread_Policy> {
///         friend class core::Singleton<Registry, 0, 0, core::Singleton_Singlethread_Policy>;
///         friend class core::Singleton_Middle<Registry, core::Singleton_Singlethread_Policy, 0, 0>;
///
/// The two friends let constructor and destructor be private.
template <class T, int, int, class Policy>
class Singleton : public Singleton_Middle<T, Policy, 0, 0> {
public:
    /// Destroys the object. It still answers to getSingleton() while its destructor runs; a later use makes a new one.
    static void deleteSingleton() {
        T *object = Singleton_Base<T, 0, Policy>::mObject;
        if (!object || mDeleting)
            return; // it is on its way already
        mDeleting = true;
        deleteObject(object);
        mDeleting = false;
        Singleton_Base<T, 0, Policy>::setObject(nullptr);
    }

private:
    static inline constinit bool mDeleting = false;

    static void deleteObject(T *object) { delete object; }
};

} // namespace core
