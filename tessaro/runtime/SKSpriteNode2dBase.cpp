// Construction, the frame update, run modes, sounds and hits of an object
// sprite. The actions it runs are built in SKSpriteNode2dBaseActions.cpp.
#include "SKSpriteNode2dBase.h"

#include "AppSharedSceneBase.h"
#include "HealthBar.h"

#include <tessaro/kit/AudioNode.h>
#include <tessaro/model/Diagnostics.h>

#include <QUrl>

#include <cmath>

namespace tessaro {

using kit::Action;
using kit::ActionPtr;

namespace {

kit::TexturePtr firstTexture(const QString& imageName, AppSharedSceneBase* scene)
{
    return scene ? scene->cachedTexture(imageName) : kit::TextureAtlas::texturesOrImage(imageName).front();
}

} // namespace

SKSpriteNode2dBase::SKSpriteNode2dBase(const QString& imageName, const SpriteSetup& setup)
    : SKSpriteNodeSharedBase(firstTexture(imageName, setup.scene), Qt::transparent, setup.size)
{
    setUp(setup);
}

SKSpriteNode2dBase::SKSpriteNode2dBase(const kit::TexturePtr& texture, const SpriteSetup& setup)
    : SKSpriteNodeSharedBase(texture, Qt::transparent, setup.size)
{
    setUp(setup);
}

void SKSpriteNode2dBase::setUp(const SpriteSetup& setup)
{
    setGameScene(setup.scene);
    setPosition(setup.position);
    setZPosition(setup.zPosition);
    setAnchorPoint(setup.anchorPoint);
    setName(setup.name);
    setUserInteractionEnabled(true);
    setAllowedTimesToHit(setup.allowedTimesToHit);
    setHitsRemaining(setup.allowedTimesToHit);
    setOffsetHealthBar(setup.offsetHealthBar);
    if (setup.allowedTimesToHit > 1)
        SKSpriteNode2dBase::addHealthBar();
}

void SKSpriteNode2dBase::update(double referenceX)
{
    AppSharedSceneBase* scene = gameScene();
    if (!scene || !scene->soundFxEnabled())
        return;
    m_distance = std::abs(referenceX - position().x());
    setVolume(volumeForDistance());
    const float level = volume();
    if (!children().empty()) // most objects have none; the search is not free
        enumerateChildNodesWithName(QStringLiteral("audio_constant_*"), [level](const kit::NodePtr& child, bool&) {
            child->runAction(Action::changeVolumeTo(level, 0));
        });
    if (!callbackFunction().isEmpty() && scene->customDelegate())
        scene->customDelegate()->callback(callbackType::update, callbackFunction(), shared_from_this());
}

float SKSpriteNode2dBase::volumeForDistance() const
{
    const double width = gameScene() ? gameScene()->size().width() : 0;
    if (m_distance <= width)
        return 1.0f;
    if (m_distance <= 2 * width)
        return 0.67f;
    if (m_distance <= 3 * width)
        return 0.33f;
    return 0.0f;
}

void SKSpriteNode2dBase::startAnimation()
{
    const AnimationProperty* animation = nullptr;
    if (obstacleProperties() && obstacleProperties()->animation)
        animation = &*obstacleProperties()->animation;
    else if (characterProperties() && characterProperties()->animation)
        animation = &*characterProperties()->animation;
    if (!animation)
        return;
    const auto frequency = caseFromText<animationFrequency>(animation->frequency.value_or("never"));
    switch (frequency.value_or(animationFrequency::never)) {
    case animationFrequency::custom:
    case animationFrequency::none: break;
    case animationFrequency::foreverAutomatically: runForever(); break;
    case animationFrequency::foreverResetManual:
    case animationFrequency::once: runOnce(); break;
    case animationFrequency::never:
        // The library prints only when the game asks for its log.
        if (gameScene() && gameScene()->logDebugMessages())
            diagnostic("NEVER: " + name().toStdString());
        break;
    }
}

void SKSpriteNode2dBase::runOnce()
{
    setAnimType(animationFrequency::once);
    if (ActionPtr frames = buildAnimationAction())
        runAction(Action::repeatActionForever(frames), actionKey(".animateOnce"));
    if (ActionPtr move = buildMoveAction())
        runAction(move, actionKey(".moveOnce"));
}

void SKSpriteNode2dBase::runForever()
{
    setAnimType(animationFrequency::foreverAutomatically);
    if (ActionPtr frames = buildAnimationAction())
        runAction(Action::repeatActionForever(frames), actionKey(".animateForever"));
    if (ActionPtr move = buildMoveAction())
        runAction(Action::repeatActionForever(move), actionKey(".moveForever"));
}

void SKSpriteNode2dBase::runOnceReset()
{
    const bool dropsWithCollision = obstacleProperties() && obstacleProperties()->animation &&
        obstacleProperties()->animation->moveDirection == "gravityDropWithCollision";
    ActionPtr reset = dropsWithCollision ? Action::sequence({block([](SKSpriteNode2dBase& node) {
        if (kit::PhysicsBody* body = node.physicsBody()) {
            body->setAffectedByGravity(false);
            body->setDynamic(false);
        }
        node.setPosition(node.startingPosition());
    })})
                                         : Action::sequence({});
    runAction(reset, actionKey("_OnceReset"));
}

void SKSpriteNode2dBase::stopAllActions()
{
    removeAllActions();
}

void SKSpriteNode2dBase::playConstantSounds(const std::vector<GameSound>& sounds)
{
    if (!gameScene() || !gameScene()->soundFxEnabled() || sounds.empty())
        return;
    for (const GameSound& sound : sounds) {
        const QString path = kit::resources::locate(QString::fromStdString(sound.filename),
                                                    {QString::fromStdString(sound.fileExtension)});
        if (path.isEmpty())
            continue;
        auto audio = std::make_shared<kit::AudioNode>(QUrl::fromLocalFile(path));
        audio->setName(QStringLiteral("audio_constant_") + QString::fromStdString(sound.filename));
        audio->setPositional(false);
        audio->setAutoplayLooped(true);
        if (sound.volume)
            audio->setVolume(float(*sound.volume));
        addChild(audio);
    }
}

void SKSpriteNode2dBase::playSoundEffects(const std::vector<GameSound>& sounds)
{
    if (!gameScene() || !gameScene()->soundFxEnabled())
        return;
    for (const GameSound& sound : sounds)
        runAction(Action::playSoundFileNamed(QString::fromStdString(sound.filename + "." + sound.fileExtension),
                                             sound.waitForCompletion.value_or(true)));
}

bool SKSpriteNode2dBase::hit()
{
    setHitsRemaining(hitsRemaining() - 1);
    if (hitsRemaining() < 1) {
        setHitsRemaining(allowedTimesToHit());
        for (int slot = 1; slot < allowedTimesToHit(); ++slot)
            setHealthSlot(*this, slot, QStringLiteral("object_HealthGreen"));
        return true;
    }
    for (int slot = allowedTimesToHit(); slot > hitsRemaining(); --slot)
        setHealthSlot(*this, slot, QStringLiteral("object_HealthEmpty"));
    if (hitsRemaining() == 1)
        setHealthSlot(*this, 1, QStringLiteral("object_HealthRed"));
    return false;
}

void SKSpriteNode2dBase::addHealthBar()
{
    tessaro::addHealthBar(*this, allowedTimesToHit(), offsetHealthBar());
}

ActionPtr SKSpriteNode2dBase::block(std::function<void(SKSpriteNode2dBase&)> work)
{
    // The action may outlive the node; it then does nothing.
    std::weak_ptr<kit::Node> self = weak_from_this();
    return Action::runBlock([self, work = std::move(work)] {
        if (auto node = std::static_pointer_cast<SKSpriteNode2dBase>(self.lock()))
            work(*node);
    });
}

} // namespace tessaro
