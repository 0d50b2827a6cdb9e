#include "platform/controls/environment.hpp"

#include "core/observable.hpp"

#include <QChildEvent>
#include <QPointer>
#include <QVariant>

#include <map>
#include <vector>

namespace platform::internal {
namespace {

constexpr const char* nodeProperty = "_environment";

/// What a widget knows of the environment: its own objects, and who looks for some from here or
/// from below. A child of the widget, there from its first use on.
class Node final : public QObject {
  public:
    static Node* find(const QWidget& widget) {
        return static_cast<Node*>(widget.property(nodeProperty).value<QObject*>());
    }
    static Node& of(QWidget& widget) {
        if (Node* const node = find(widget)) {
            return *node;
        }
        return *new Node(widget);
    }

    std::map<std::type_index, EnvironmentObject> objects;
    core::ObserverList<> followers;

    bool eventFilter(QObject* object, QEvent* event) override {
        if (object == parent() && event->type() == QEvent::ParentChange) {
            followers.notify();
        }
        return false;
    }

  private:
    explicit Node(QWidget& widget) : QObject(&widget) {
        widget.setProperty(nodeProperty, QVariant::fromValue<QObject*>(this));
        widget.installEventFilter(this);
    }
};

} // namespace

void setEnvironment(QWidget& widget, std::type_index type, EnvironmentObject object) {
    Node& node = Node::of(widget);
    EnvironmentObject& place = node.objects[type];
    if (place != object) {
        const EnvironmentObject former = std::exchange(place, std::move(object));
        node.followers.notify();
    }
}

EnvironmentObject environment(const QWidget& widget, std::type_index type) {
    for (const QWidget* at = &widget; at != nullptr; at = at->parentWidget()) {
        if (const Node* const node = Node::find(*at)) {
            const auto found = node->objects.find(type);
            if (found != node->objects.end() && found->second != nullptr) {
                return found->second;
            }
        }
    }
    return nullptr;
}

struct EnvironmentFollower::State : std::enable_shared_from_this<State> {
    QPointer<QWidget> widget;
    std::type_index type;
    std::function<void()> changed;
    EnvironmentObject object;
    std::vector<core::Subscription> above;

    State(QWidget& of, std::type_index what, std::function<void()> callback)
        : widget(&of), type(what), changed(std::move(callback)) {}

    void look() {
        const auto self = shared_from_this(); // `changed` may destroy the follower
        above.clear();
        for (QWidget* at = widget; at != nullptr; at = at->parentWidget()) {
            above.push_back(Node::of(*at).followers.add([weak = weak_from_this()] {
                if (const auto state = weak.lock()) {
                    state->lookAgain();
                }
            }));
        }
        object = environment(*widget, type);
    }

    void lookAgain() {
        if (widget == nullptr) {
            return;
        }
        const auto self = shared_from_this();
        const EnvironmentObject before = object;
        look();
        if (object != before && changed) {
            const auto callback = changed;
            callback();
        }
    }
};

EnvironmentFollower::EnvironmentFollower(QWidget& widget, std::type_index type,
                                         std::function<void()> changed)
    : state_(std::make_shared<State>(widget, type, std::move(changed))) {
    state_->look();
}

EnvironmentFollower::~EnvironmentFollower() {
    state_->above.clear();
    state_->widget.clear();
}

const EnvironmentObject& EnvironmentFollower::object() const {
    return state_->object;
}

} // namespace platform::internal
