#pragma once

#include "nui/ui/Fwd.h"

namespace nurel::ui {

/// Makes the animations that take one component out of a place and bring another one into it:
///
///     AnimationContext *change = Transition::build(Transition::T_CROSS_FADE, old, next, 0.3f, nullptr);
///     manager.commitAnimation(change);
///
/// Both components have to stand in their place and be visible; neither is shown, hidden or removed. Take the old one
/// out when the context says that it has finished.
class Transition {
public:
    enum Type : int {
        T_NONE = 0,
        T_SLIDEIN_HORIZONTAL_RIGHT_TO_LEFT = 1,
        T_SLIDEIN_HORIZONTAL_LEFT_TO_RIGHT = 2,
        T_SLIDEIN_VERTICAL_BOTTOM_TO_TOP = 3,
        T_SLIDEIN_VERTICAL_TOP_TO_BOTTOM = 4,
        T_FLIP_HORIZONTAL = 5, ///< half a turn around the y axis
        T_FLIP_VERTICAL = 6,   ///< half a turn around the x axis
        T_CROSS_FADE = 7
    };

    Transition() = delete;

    /// The constant's name, such as "T_CROSS_FADE"; "UNKNOWN" for a value that is none.
    static const char *unparse(Type type);

    /// Adds the animations of the type to the context and returns it. Without a context it makes one that runs for
    /// `duration` seconds and belongs to the caller; a context that is passed in keeps its own duration. It is neither
    /// committed nor opened. Either component may be null, which leaves out its half.
    ///
    /// `to` is put where the transition starts, at once: while an animation is open that would only be recorded there,
    /// so build transitions outside of it. A slide moves both by the size of their parent and ends with `to` at
    /// position (0, 0), whatever offset it had. A fade hides `to` alone at first and takes its children along from the
    /// first step after the start on; give them opacity 0 before where that one frame matters.
    ///
    /// T_NONE only returns the context, which may be null. A value that is no type is logged as an error and adds
    /// nothing.
    static AnimationContext *build(Type type, Component *from, Component *to, float duration,
                                   AnimationContext *context);
};

} // namespace nurel::ui
