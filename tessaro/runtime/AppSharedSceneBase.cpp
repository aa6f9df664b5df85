#include "AppSharedSceneBase.h"

#include <tessaro/kit/Texture.h>

#include <algorithm>

namespace tessaro {

using kit::TexturePtr;

AppSharedSceneBase::AppSharedSceneBase(const QSizeF& size) : kit::Scene(size)
{
    // Contacts are wanted before the scene is shown too: a game run without a
    // view (tests, headless runs) still steps its physics.
    physicsWorld().setContactDelegate(this);
}

AppSharedSceneBase::~AppSharedSceneBase()
{
    // Children leave while this object is still whole: their bodies detach
    // from the world and nothing calls back into a half-destroyed scene.
    removeAllChildren();
}

namespace {

QStringList sortedFrameNames(const kit::TextureAtlas& atlas)
{
    QStringList names = atlas.textureNames();
    names.sort();
    return names;
}

} // namespace

std::vector<TexturePtr> AppSharedSceneBase::cachedTextures(const QString& name)
{
    if (m_cachedNodes) {
        auto hit = m_cachedNodes->find(name);
        if (hit != m_cachedNodes->end())
            return hit->second;
    }
    auto atlas = kit::TextureAtlas::atlasNamed(name);
    const QStringList names = sortedFrameNames(*atlas);
    std::vector<TexturePtr> textures;
    if (names.isEmpty() || names.first().isEmpty()) {
        textures.push_back(kit::Texture::textureWithImageNamed(name));
    } else {
        textures.reserve(size_t(names.size()));
        for (const QString& frame : names)
            textures.push_back(atlas->textureNamed(frame));
    }
    if (m_cachedNodes)
        (*m_cachedNodes)[name] = textures;
    return textures;
}

TexturePtr AppSharedSceneBase::cachedTexture(const QString& name)
{
    if (m_cachedNodes) {
        auto hit = m_cachedNodes->find(name);
        if (hit != m_cachedNodes->end() && !hit->second.empty())
            return hit->second.front();
    }
    return cachedTextures(name).front();
}

void AppSharedSceneBase::preloadTextures(const QString& name)
{
    if (m_cachedNodes && m_cachedNodes->count(name))
        return;
    auto atlas = kit::TextureAtlas::atlasNamed(name);
    const QStringList names = sortedFrameNames(*atlas);
    if (names.isEmpty() || !m_cachedNodes)
        return;
    std::vector<TexturePtr> textures;
    for (const QString& frame : names)
        textures.push_back(atlas->textureNamed(frame));
    (*m_cachedNodes)[name] = std::move(textures);
}

void AppSharedSceneBase::clearCachedTextures()
{
    m_cachedNodes = TextureCache{};
    m_cachedNodes.reset();
}

double AppSharedSceneBase::groundHeight(double x) const
{
    if (m_groundBaseVariants.empty())
        return 0;
    double height = m_groundBaseVariants.back().y();
    for (const QRectF& piece : m_groundBaseVariants)
        if (piece.x() <= x && x < piece.x() + piece.width())
            height = piece.y();
    return height;
}

kit::TextureLookup AppSharedSceneBase::textureLookup()
{
    return [this](const QString& name) { return cachedTextures(name); };
}

void AppSharedSceneBase::didMoveToView(kit::SceneView* view)
{
    kit::Scene::didMoveToView(view);
    physicsWorld().setContactDelegate(this);
    if (m_customDelegate)
        m_customDelegate->didMove(view);
}

void AppSharedSceneBase::update(double currentTime)
{
    if (m_customDelegate)
        m_customDelegate->update(currentTime);
}

void AppSharedSceneBase::didFinishUpdate()
{
    if (m_customDelegate)
        m_customDelegate->didFinishUpdate();
}

void AppSharedSceneBase::didBeginContact(const kit::PhysicsContact& contact)
{
    if (m_contactDelegate)
        m_contactDelegate->didBegin(contact);
}

void AppSharedSceneBase::didEndContact(const kit::PhysicsContact& contact)
{
    if (m_contactDelegate)
        m_contactDelegate->didEnd(contact);
}

} // namespace tessaro
