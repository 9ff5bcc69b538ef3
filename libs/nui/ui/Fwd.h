#pragma once

/// Forward declarations of the toolkit's classes, for headers that only point at them.
#include "nmain/core/Fwd.h"
#include "nmain/math/Fwd.h"

namespace nurel::ui {

class Animation;
class AnimationContext;
class AnimationEvent;
class ClickEvent;
class Component;
class ComponentHandler;
class ComponentView;
class Container;
class CursorEvent;
class Dialog;
class DragEvent;
class FocusEvent;
class HermiteInterpolator;
class HoverEvent;
class Interpolator;
class KeyEvent;
class KeyboardOverlay;
class Layout;
class MouseEvent;
class Skin;
class SkinManager;
class TextEvent;
class Transition;
class UIComponentFactory;
class UIComponentParser;
class UIEvent;
class UIEventHandler;
class UIManager;
class WheelEvent;
class Widget;
struct BoxModel;
struct CursorPosition;
struct Ray;

namespace animation {
class AnimatedOpacity;
class AnimatedPosition;
class AnimatedRotation;
class AnimatedScale;
class AnimatedSize;
class AnimatedVisibility;
} // namespace animation

namespace components {
class Button;
class Checkbox;
class Combo;
class ComboList;
class Image;
class Label;
class Listbox;
class NavigationBar;
class Panel;
class Progress;
class Radio;
class Selector;
class Slider;
class TextField;
} // namespace components

namespace handlers {
class CoverFlowHandler;
class DataProvider;
class NavigationHandler;
} // namespace handlers

namespace layouts {
class FlowLayout;
class FormLayout;
} // namespace layouts

namespace skins {
class DefaultSkin;
} // namespace skins

namespace views {
class DefaultLabelView;
class DefaultPanelView;
class DefaultWidgetView;
class LabelView;
class PanelView;
class WidgetView;
} // namespace views

} // namespace nurel::ui
