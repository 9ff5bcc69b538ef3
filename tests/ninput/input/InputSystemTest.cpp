#include "ninput/input/InputSystem.h"

#include "foundation/core/Exception.h"
#include "ninput/input/Mouse.h"

#include <gtest/gtest.h>

using nurel::input::InputSystem;

TEST(InputSystem, IsThereBetweenCreateAndDestroy) {
    EXPECT_FALSE(InputSystem::isSingletonCreated());
    EXPECT_EQ(InputSystem::getSingletonPtr(), nullptr);
    InputSystem &input = InputSystem::create();
    EXPECT_TRUE(InputSystem::isSingletonCreated());
    EXPECT_EQ(&InputSystem::getSingleton(), &input);
    EXPECT_EQ(InputSystem::getSingletonPtr(), &input);
    InputSystem::destroy();
    EXPECT_FALSE(InputSystem::isSingletonCreated());
    InputSystem::destroy();
}

TEST(InputSystem, RefusesASecondOneAndTheUseOfNone) {
    EXPECT_THROW(InputSystem::getSingleton(), core::IllegalStateException);
    InputSystem::create();
    EXPECT_THROW(InputSystem::create(), core::IllegalStateException);
    InputSystem::destroy();
}

TEST(InputSystem, KeepsTheShiftStateApartFromTheKeys) {
    InputSystem &input = InputSystem::create();
    EXPECT_FALSE(input.isShiftPressed());
    input.getKeyboard().inject(nurel::input::Keyboard::K_LEFT_SHIFT, true);
    EXPECT_FALSE(input.isShiftPressed());
    input.setShiftPressed(true);
    EXPECT_TRUE(input.isShiftPressed());
    input.setShiftPressed(false);
    EXPECT_FALSE(input.isShiftPressed());
    InputSystem::destroy();
}

TEST(Mouse, NumbersButtonsAndStates) {
    EXPECT_EQ(nurel::input::Mouse::LEFT, 0);
    EXPECT_EQ(nurel::input::Mouse::RIGHT, 1);
    EXPECT_EQ(nurel::input::Mouse::MIDDLE, 2);
    EXPECT_EQ(nurel::input::Mouse::RELEASE, 0);
    EXPECT_EQ(nurel::input::Mouse::PRESS, 1);
}
