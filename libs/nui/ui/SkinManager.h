#pragma once

#include "foundation/core/SmartPtr.h"
#include "nui/core/CKHashMap.h"
#include "nui/core/Singleton.h"
#include "nui/ui/Skin.h"

namespace nurel::ui {

/// The skins by name, each held by a counted reference, and which of them is the default. It comes into being on first
/// use and ends with the `UIManager`. The toolkit adds no skin and sets no default: the application does. Used on the
/// thread that drives the `UIManager`.
class SkinManager : public core::Singleton<SkinManager, 0, 0, core::Singleton_Singlethread_Policy>,
                    public core::CKHashMapValue<core::SmartPtr<Skin>> {
public:
    SkinManager();
    SkinManager(const SkinManager &) = delete;
    SkinManager &operator=(const SkinManager &) = delete;
    ~SkinManager() override;

    /// Stores the skin under its name, in place of an earlier one; null is ignored.
    void addSkin(Skin *skin);

    /// Removes whatever stands under the skin's name. Views that were made keep their skin.
    void removeSkin(Skin *skin);

    /// The skin of that name, or, when useDefault is set and there is none, the default skin, which may be null. A null
    /// or empty name is nobody's.
    Skin *getSkin(const char *name, bool useDefault) const;

    Skin *getDefaultSkin() const { return mDefaultSkin; }

    /// The default skin is only pointed at: the caller keeps it alive, as a rule by adding it too.
    void setDefaultSkin(Skin *skin) { mDefaultSkin = skin; }

private:
    Skin *mDefaultSkin = nullptr;
};

} // namespace nurel::ui
