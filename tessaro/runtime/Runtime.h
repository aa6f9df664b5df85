// The whole game runtime: what a game includes.
#pragma once

#include "ActionExtensions.h"
#include "AppSharedSceneBase.h"
#include "GameResources.h"
#include "HealthBar.h"
#include "LevelItems.h"
#include "ObstacleCreationHelper.h"
#include "PhysicsRecords.h"
#include "Projectiles.h"
#include "SKSpriteNode2dBase.h"
#include "SKSpriteNodeEnemy2dBase.h"
#include "SKSpriteNodeSharedBase.h"
#include "SceneDelegates.h"
