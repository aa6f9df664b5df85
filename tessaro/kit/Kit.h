// The whole scene kit.
#pragma once

#include "Action.h"
#include "AudioNode.h"
#include "EffectNode.h"
#include "LabelNode.h"
#include "Node.h"
#include "PhysicsBody.h"
#include "PhysicsWorld.h"
#include "Renderer.h"
#include "Scene.h"
#include "ShapeNode.h"
#include "SpriteNode.h"
#include "Texture.h"
#include "Types.h"
