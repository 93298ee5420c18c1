#include "Walker.h"

#include "core/Debug.h"
#include "graphics/AnimDataMap.h"
#include "graphics/TileAnimation.h"
#include "physics/AbstractHull.h"
#include "volumes/WallAgent.h"

namespace worldapp {

NOX_RTTI_DEFINE(Walker, nox::Character);

const nox::Real Walker::kGravity = nox::Real::FromRaw(0x4000);

namespace {

const nox::NameHash kIdle = nox::HashString("Idle");
const nox::NameHash kBodyPool = nox::HashString("Body");

struct Cast {
  const char* name;
  const char* sprite;
};
const Cast kCast[] = {{"Witch", "WorldWitch"}, {"GuardTall", "WorldGuard"}, {"MumBear", "WorldBear"}};

}  // namespace

Walker::Walker(nox::ContextPool& pool, nox::TileAnimData* data, const char* name)
    : nox::Character(pool, data), m_Label(name) {
  if (GetTileAnimation()) GetTileAnimation()->Play(kIdle, 0);
  SetCollisionPool(kBodyPool);
}

void Walker::Init() {
  nox::Character::Init();
  // A character that meets a wall stops there: no bounce.
  GetCollisionHull().setElasticity(nox::Real());
}

void Walker::Update(unsigned long dt) {
  if (IsInPhysicsEngine()) m_Body.m_Force += nox::Vector3(nox::Real(), kGravity, nox::Real());
}

void Walker::OnCollision(const nox::CollisionInfo& info) {
  if (info.m_pHull && nox::TypeCast<noxfw::WallAgent>(info.m_pHull->getOwner())) m_bOnWall = true;
}

void Walker::PostPhysics() {
  nox::Character::PostPhysics();
  if (m_bOnWall && !m_bLanded && GetVelocity().y <= nox::Real()) {
    m_bLanded = true;
    nox::AutomationPrintf("Landed %s y=%d", m_Label.c_str(), GetPosition().y.ToInt());
  }
  m_bOnWall = false;
}

bool Walker::Covers(const nox::Vector2& point) const {
  const nox::TileAnimation* sprite = GetTileAnimation();
  if (!sprite || !IsEnabled()) return false;
  const nox::Rectangle r = sprite->GetRect(GetCollider());
  return point.x >= r.left && point.x < r.right && point.y >= r.top && point.y < r.bottom;
}

nox::Agent* WalkerFactory::CreateAgent(nox::AgentEntry* entry, const nox::AgentStyle* style,
                                       const nox::AttributeList& attributes) {
  if (!entry->m_pContextPool) return nullptr;
  const nox::KeyValuePair* id = attributes.FindAttribute(nox::HashString("id"));
  const Cast* cast = nullptr;
  for (const Cast& c : kCast) {
    if (id && static_cast<uint32_t>(id->m_Value) == nox::HashString(c.name)) cast = &c;
  }
  if (!cast) {
    nox::AutomationPrintf("world_app: no character for agent %u",
                          id ? static_cast<unsigned>(id->m_Value) : 0u);
    return nullptr;
  }
  nox::TileAnimData* data = m_Sprites.GetAnimData(cast->sprite);
  if (!data) {
    nox::AutomationPrintf("world_app: sprite %s is missing", cast->sprite);
    return nullptr;
  }
  Walker* walker = new Walker(*entry->m_pContextPool, data, cast->name);
  walker->SetPosition(entry->m_Position);
  Configure(walker, style, attributes);
  return walker;
}

}  // namespace worldapp
