#include "platform/controls/accessible_factory.hpp"

#include <algorithm>
#include <utility>
#include <vector>

namespace platform {
namespace {

/// What the library tells assistive technology. A host may unload the library: nothing of it may be
/// called after that.
class Makers {
  public:
    Makers() { QAccessible::installFactory(make); }
    ~Makers() {
        QAccessible::removeFactory(make);
        isThere_ = false;
    }
    Makers(const Makers&) = delete;
    Makers& operator=(const Makers&) = delete;

    static Makers& all() {
        static Makers makers;
        return makers;
    }

    void add(const QMetaObject& metaObject, AccessibleMaker maker) {
        if (find(metaObject) == nullptr) {
            makers_.emplace_back(&metaObject, maker);
        }
    }

  private:
    [[nodiscard]] AccessibleMaker find(const QMetaObject& metaObject) const {
        const auto found = std::ranges::find(
            makers_, &metaObject, &std::pair<const QMetaObject*, AccessibleMaker>::first);
        return found != makers_.end() ? found->second : nullptr;
    }

    /// Asked for every object, with its class and then with those that it derives from: the first
    /// time is the one that counts.
    static QAccessibleInterface* make(const QString& className, QObject* object) {
        if (!isThere_ || object == nullptr ||
            className != QLatin1String(object->metaObject()->className())) {
            return nullptr;
        }
        for (const QMetaObject* of = object->metaObject(); of != nullptr; of = of->superClass()) {
            if (const AccessibleMaker maker = all().find(*of)) {
                if (QAccessibleInterface* const made = maker(*object)) {
                    return made;
                }
            }
        }
        return nullptr;
    }

    static inline bool isThere_ = true;
    std::vector<std::pair<const QMetaObject*, AccessibleMaker>> makers_;
};

} // namespace

void addAccessibleMaker(const QMetaObject& metaObject, AccessibleMaker maker) {
    Makers::all().add(metaObject, maker);
}

} // namespace platform
