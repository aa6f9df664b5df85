// The health bar above an element that takes more than one hit: a child
// "healthBox" holding one slot "health1" ... "health4" per hit.
#pragma once

#include <tessaro/kit/SpriteNode.h>

#include <QPointF>
#include <QString>

namespace tessaro {

/// The most hits a bar shows.
inline constexpr int kHealthBarSlots = 4;

/// Adds the bar to `node`: `offset` from the middle of its top edge, one
/// slot per hit (two to four).
void addHealthBar(kit::SpriteNode& node, int allowedTimesToHit, const QPointF& offset);

/// Gives slot `slot` of the node's bar the picture `image`; nothing when the
/// node has no such slot.
void setHealthSlot(kit::Node& node, int slot, const QString& image);

/// Shows `hitsRemaining` of `allowedTimesToHit` on the node's bar: the
/// slots above it empty, the last one red, the others green. For games that
/// count hits of characters, which have no `hit` of their own.
void showHitsRemaining(kit::Node& node, int allowedTimesToHit, int hitsRemaining);

/// The bar's pictures: "object_HealthBar", "object_HealthGreen",
/// "object_HealthRed" and "object_HealthEmpty". A game supplies its own
/// images of these names; plain coloured bars stand in for missing ones.
kit::TexturePtr healthBarTexture(const QString& image);

} // namespace tessaro
