// SPDX-License-Identifier: Apache-2.0
/// @file
/// What views and view controllers have in common: others can refer to them without keeping them alive.
#pragma once

#include <memory>

namespace zorel {

class UIObject {
public:
    UIObject() = default;
    UIObject(const UIObject&) = delete;
    UIObject& operator=(const UIObject&) = delete;
    virtual ~UIObject() = default;

    /// Expires when the object is destroyed.
    [[nodiscard]] std::weak_ptr<const void> lifetime() const {
        if (!life_) {
            life_ = std::make_shared<char>();
        }
        return life_;
    }

protected:
    /// For destructors: from here on nobody reaches the object through its lifetime.
    void endLifetime() { life_.reset(); }

private:
    mutable std::shared_ptr<const void> life_;
};

/// A pointer to a view or controller that turns to nullptr when the object is destroyed.
template <typename Object> class UIWeak {
public:
    UIWeak() = default;
    explicit UIWeak(Object* object) : object_(object) {
        if (object != nullptr) {
            life_ = object->lifetime();
        }
    }

    [[nodiscard]] Object* get() const { return life_.expired() ? nullptr : object_; }

private:
    Object* object_ = nullptr;
    std::weak_ptr<const void> life_;
};

} // namespace zorel
