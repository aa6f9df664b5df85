#include "LevelWalk.h"

#include "ValueTextCheck.h"

#include <span>
#include <utility>
#include <vector>

namespace stagewright::cli {

using namespace tessaro;

namespace {

// ---- Which text fields hold which form ---------------------------------------------
//
// One table per record that keeps value texts: the key of each such field and
// the check of its form, or `names` for a text of file names. Free texts
// (callbacks, colours, the texts the game alone reads) have no entry. The
// images that placed items show are looked up item by item, not here.

using TextCheck = ValueProblem (*)(std::string_view);
constexpr TextCheck names = nullptr;

struct TextRule {
    std::string_view key;
    TextCheck check;
};

template <class R>
std::span<const TextRule> textRules()
{
    return {};
}

#define LINT_TEXT_RULES(Record, ...)                                                                                   \
    template <>                                                                                                        \
    std::span<const TextRule> textRules<Record>()                                                                      \
    {                                                                                                                  \
        static constexpr TextRule rules[] = {__VA_ARGS__};                                                             \
        return rules;                                                                                                  \
    }

constexpr TextCheck pair = pairTextProblem;
constexpr TextCheck range = rangeTextProblem;
template <Enumeration E>
constexpr TextCheck one = caseTextProblem<E>;
template <Enumeration E>
constexpr TextCheck list = caseListTextProblem<E>;

LINT_TEXT_RULES(LevelSettings, {"scrollOrientation", one<scrollOrientationType>},
                {"sceneOrientation", one<sceneOrientationType>}, {"scaleMode", scaleModeTextProblem}, {"size", pair},
                {"anchorPoint", pair})
LINT_TEXT_RULES(PinnedRange, {"range", range})
LINT_TEXT_RULES(BackgroundImage, {"scrollOrientation", one<scrollOrientationType>})
LINT_TEXT_RULES(GroundSection, {"distance", pair}, {"groundType", one<groundBaseType>},
                {"groundPhysicsAngleType", list<groundPhysicsAngleType>}, {"anchorPoint", pair})
LINT_TEXT_RULES(CharacterLevelItem, {"sceneObjectType", one<sceneObjectType>},
                {"charClassType", one<characterClassType>})
LINT_TEXT_RULES(WindowItem, {"type", one<windowItemType>})
LINT_TEXT_RULES(LevelEndData, {"windowOffset", pair})
LINT_TEXT_RULES(Coins, {"repeatDistance", pair})
LINT_TEXT_RULES(Artifact, {"objectClassType", one<objectClassType>})
// A sound's file name and extension are checked with the sound itself.
LINT_TEXT_RULES(GameSound, {"type", one<soundBiteType>})
LINT_TEXT_RULES(DeviceProperties, {"altPosition", pair}, {"deviceName", list<deviceName>}, {"digitSize", pair},
                {"distance", pair}, {"offsetEdge", pair}, {"offsetHealthBar", pair}, {"offset", pair},
                {"position", pair}, {"randomPositionRange", randomPositionTextProblem}, {"selectorSize", pair},
                {"size", pair})
LINT_TEXT_RULES(CollisionDetection, {"category", list<collisionTypes>}, {"contact", list<collisionTypes>},
                {"collision", list<collisionTypes>})
LINT_TEXT_RULES(AnimationProperty, {"frequency", one<animationFrequency>},
                {"moveDirection", one<animationMoveDirection>}, {"velocity", pair})
LINT_TEXT_RULES(Delays, {"fadeRange", range}, {"initialRange", range}, {"idleRange", range}, {"movementRange", range},
                {"cycleEndRange", range})
LINT_TEXT_RULES(TargetDistances, {"maximumRange", pair}, {"near", pair}, {"move", pair}, {"attack", pair},
                {"toss", pair})
LINT_TEXT_RULES(EdgePhysics, {"action", list<actionType>}, {"startPoint", pair}, {"endPoint", pair},
                {"framesAffected", frameListTextProblem})
LINT_TEXT_RULES(RadiusPhysics, {"action", list<actionType>}, {"center", pair}, {"framesAffected", frameListTextProblem})
LINT_TEXT_RULES(RectanglePhysics, {"action", list<actionType>}, {"size", pair}, {"center", pair},
                {"framesAffected", frameListTextProblem})
LINT_TEXT_RULES(Point, {"action", list<actionType>}, {"point", pair})
LINT_TEXT_RULES(PolyPhysics, {"action", list<actionType>}, {"direction", one<pathDirection>},
                {"framesAffected", frameListTextProblem})
LINT_TEXT_RULES(CycleEndProperties, {"atlasName", names}, {"objectClassType", list<objectClassType>})
LINT_TEXT_RULES(RotationProperties, {"rotateType", one<rotationType>})
LINT_TEXT_RULES(ProjectileProperties, {"image", names}, {"imageDirection", one<pathDirection>},
                {"type", one<projectileType>})
LINT_TEXT_RULES(SiblingProperties, {"image", names}, {"siblingType", one<siblingType>})
LINT_TEXT_RULES(Actions, {"initial", names}, {"idle", names}, {"move", names}, {"attack", names}, {"toss", names},
                {"death", names})
LINT_TEXT_RULES(Obstacle, {"sceneObjectType", one<sceneObjectType>}, {"anchorPoint", pair},
                {"imageType", one<imageType>}, {"objectClassType", list<objectClassType>})
LINT_TEXT_RULES(Character, {"anchorPoint", pair}, {"imageType", one<imageType>}, {"imageDirection", one<pathDirection>},
                {"characterType", one<characterType>}, {"objectClassType", list<objectClassType>},
                {"sceneObjectType", one<sceneObjectType>})

#undef LINT_TEXT_RULES

// ---- The walk ----------------------------------------------------------------------

template <class T>
concept NamedItem = requires(const T& value)
{
    itemLabel(value, std::size_t{0});
};

class Walker {
public:
    explicit Walker(LevelVisitor& visitor) : m_visitor(visitor) {}

    /// A field of the level: the part it holds is an item of its own, and
    /// the placed items in it are named with the part's prefix.
    template <class M>
    void levelField(const M& value, std::string_view key)
    {
        m_item = levelPartName(key);
        m_prefix = itemPrefix(key);
        m_path.clear();
        if constexpr (isOptionalMember<M>) {
            if (value)
                levelField(*value, key);
        } else if constexpr (Record<M>) {
            record(value);
        } else {
            member<Level>(value, key);
        }
    }

    /// A field `key` of a record `R`, of any stored type.
    template <class R, class M>
    void member(const M& value, std::string_view key)
    {
        if constexpr (std::is_same_v<M, std::string>) {
            text<R>(value, key);
        } else if constexpr (isOptionalMember<M>) {
            if (value)
                member<R>(*value, key);
        } else if constexpr (IsVector<M>::value) {
            if constexpr (Record<typename M::value_type>)
                for (std::size_t i = 0; i < value.size(); ++i)
                    entry(value[i], key, i);
        } else if constexpr (Record<M>) {
            m_path.push_back({key, 0});
            record(value);
            m_path.pop_back();
        }
    }

    template <Record R>
    void record(const R& value)
    {
        if constexpr (std::is_same_v<R, GameSound>)
            m_visitor.sound(place({}), value);
        forEachField<R>([&](const auto& field) { member<R>(value.*field.member, field.key); });
    }

private:
    struct Step {
        std::string_view key;
        std::size_t number; // of a list entry, from 1; 0 for a record
    };

    /// An entry of a list: a placed item starts a new item, any other entry
    /// is a step of the path inside the current one.
    template <Record T>
    void entry(const T& value, std::string_view key, std::size_t index)
    {
        if constexpr (NamedItem<T>) {
            std::string outerItem = std::exchange(m_item, m_prefix + itemLabel(value, index));
            std::vector<Step> outerPath = std::exchange(m_path, {});
            record(value);
            m_item = std::move(outerItem);
            m_path = std::move(outerPath);
        } else {
            m_path.push_back({key, index + 1});
            record(value);
            m_path.pop_back();
        }
    }

    template <class R>
    void text(const std::string& value, std::string_view key)
    {
        for (const TextRule& rule : textRules<R>()) {
            if (rule.key != key)
                continue;
            if (rule.check == names)
                m_visitor.fileNames(place(key), value);
            else if (ValueProblem problem = rule.check(value))
                m_visitor.badValue(place(key), value, *problem);
            return;
        }
    }

    ValuePlace place(std::string_view key) const
    {
        ValuePlace where{m_item, {}};
        for (const Step& step : m_path) {
            if (!where.field.empty())
                where.field += '.';
            where.field += step.key;
            if (step.number)
                where.field += "[" + std::to_string(step.number) + "]";
        }
        if (!key.empty())
            where.field += (where.field.empty() ? "" : ".") + std::string(key);
        return where;
    }

    LevelVisitor& m_visitor;
    std::string m_item;
    std::string m_prefix;
    std::vector<Step> m_path;
};

std::string numbered(const char* kind, std::size_t index)
{
    return std::string(kind) + " " + std::to_string(index + 1);
}

} // namespace

void walkLevel(const Level& level, LevelVisitor& visitor)
{
    Walker walker(visitor);
    forEachField<Level>([&](const auto& field) { walker.levelField(level.*field.member, field.key); });
}

std::string itemLabel(const ObstacleLevelItem& item, std::size_t)
{
    return "obstacle \"" + item.name + "\"";
}
std::string itemLabel(const CharacterLevelItem& item, std::size_t)
{
    return "character \"" + item.name + "\"";
}
std::string itemLabel(const GroundSection&, std::size_t index)
{
    return numbered("ground section", index);
}
std::string itemLabel(const BackgroundImage&, std::size_t index)
{
    return numbered("background layer", index);
}
std::string itemLabel(const CheckPointLocation&, std::size_t index)
{
    return numbered("checkpoint", index);
}
std::string itemLabel(const Coin&, std::size_t index)
{
    return numbered("coin", index);
}
std::string itemLabel(const Shield&, std::size_t index)
{
    return numbered("shield", index);
}
std::string itemLabel(const Artifact&, std::size_t index)
{
    return numbered("artifact", index);
}
std::string itemLabel(const WindowItem&, std::size_t index)
{
    return numbered("window item", index);
}

std::string levelPartName(std::string_view levelField)
{
    if (levelField == "levelEnd")
        return "level end";
    if (levelField == "phaseEnd")
        return "phase end";
    return std::string(levelField);
}

std::string itemPrefix(std::string_view levelField)
{
    if (levelField == "levelEnd" || levelField == "phaseEnd")
        return levelPartName(levelField) + " ";
    return {};
}

} // namespace stagewright::cli
