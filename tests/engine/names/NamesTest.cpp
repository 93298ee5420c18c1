// Name hashes, the engine's type records and Tokenize.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/HashString.h"
#include "core/RTTIBase.h"
#include "core/StringUtils.h"

namespace {

using nox::HashString;
using nox::NameHash;

TEST(HashString, GivesTheValuesThatLevelFilesAndScriptsAreWrittenAgainst) {
  EXPECT_EQ(HashString("Path"), 0x7C8A99D2u);
  EXPECT_EQ(HashString("Arena"), 0x0CD7784Cu);
  EXPECT_EQ(HashString("Global"), 0xB55E2BB6u);
  EXPECT_EQ(HashString("StringTable"), 0xCD9D4FA4u);
  EXPECT_EQ(HashString("index"), 0x0FA9159Du);
  EXPECT_EQ(HashString("enable"), 0xFB7573ACu);
  EXPECT_EQ(HashString("id"), 0x00597832u);
  EXPECT_EQ(HashString("CurrentSequence"), 0xB88B88E1u);
  EXPECT_EQ(HashString(""), 5381u);
  EXPECT_EQ(HashString(std::string("Path")), 0x7C8A99D2u);
}

TEST(HashString, IsAConstantExpressionSoNamesCanBeCaseLabels) {
  static_assert(HashString("Path") == 0x7C8A99D2u, "compile-time hash");
  NameHash message = HashString("Arena");
  int branch = 0;
  switch (message) {
    case HashString("Path"):
      branch = 1;
      break;
    case HashString("Arena"):
      branch = 2;
      break;
    default:
      break;
  }
  EXPECT_EQ(branch, 2);
}

TEST(HashString, AddsBytesFrom0x80UpAsPositiveValues) {
  EXPECT_EQ(HashString("\x80"), 5381u * 33u + 0x80u);
  EXPECT_EQ(HashString("\xff"), 5381u * 33u + 0xFFu);
  EXPECT_EQ(nox::HashAppend(5381u, static_cast<char>(0xE9)), 5381u * 33u + 0xE9u);
  const unsigned char bytes[] = {0xC3, 0xA9};
  EXPECT_EQ(nox::HashBuffer(bytes, 2), HashString("\xC3\xA9"));
}

TEST(HashString, WrapsInThirtyTwoBitsAndKeepsCase) {
  // Long enough to overflow many times; the reference wraps explicitly in 64 bits.
  const char* text = "TheQuickBrownFoxJumpsOverTheLazyDog_0123456789";
  uint64_t reference = 5381;
  for (const char* p = text; *p; ++p)
    reference = (reference * 33 + static_cast<unsigned char>(*p)) & 0xFFFFFFFFu;
  EXPECT_EQ(HashString(text), static_cast<NameHash>(reference));
  EXPECT_NE(HashString("Exit"), HashString("exit"));
  EXPECT_NE(HashString("Exit"), HashString("Exit "));
}

TEST(HashBuffer, MatchesHashStringOnTextAndCountsZerosInside) {
  const char* entity = "Entity";
  EXPECT_EQ(nox::HashBuffer(reinterpret_cast<const unsigned char*>(entity), 6), HashString(entity));

  const unsigned char withZero[] = {'a', 0, 'b'};
  EXPECT_EQ(nox::HashBuffer(withZero, 3), (HashString("a") * 33u + 0u) * 33u + 'b');
  EXPECT_EQ(nox::HashBuffer(withZero, 0), 5381u);
}

TEST(HashBuffer, AppendingInPiecesEqualsHashingTheWhole) {
  const unsigned char* ity = reinterpret_cast<const unsigned char*>("ity");
  EXPECT_EQ(nox::HashBufferAppend(HashString("Ent"), ity, 3), HashString("Entity"));
  EXPECT_EQ(nox::HashAppend(HashString("Ent"), "ity"), HashString("Entity"));
  EXPECT_EQ(nox::HashAppend(HashString("Entit"), 'y'), HashString("Entity"));
}

// A small tree in the shape of the engine's: Agent <- Entity <- Character, and a
// class without a record of its own.
class Agent : public nox::RTTIBase {
  NOX_RTTI_DECLARE;
};
class Entity : public Agent {
  NOX_RTTI_DECLARE;
};
class Character : public Entity {
  NOX_RTTI_DECLARE;
};
class PlainEntity : public Entity {};
class Unrelated : public nox::RTTIBase {
  NOX_RTTI_DECLARE;
};
NOX_RTTI_DEFINE(Agent, nox::RTTIBase);
NOX_RTTI_DEFINE(Entity, Agent);
NOX_RTTI_DEFINE(Character, Entity);
NOX_RTTI_DEFINE(Unrelated, nox::RTTIBase);

namespace other {
// Same short name as ::Entity in another namespace.
class Entity : public nox::RTTIBase {
  NOX_RTTI_DECLARE;
};
NOX_RTTI_DEFINE(Entity, nox::RTTIBase);
}  // namespace other

TEST(RTTI, IsAWalksUpTheParentsAndNeverDown) {
  Character character;
  Entity entity;
  nox::RTTIBase* asBase = &character;
  EXPECT_EQ(asBase->GetTypeInfo(), &Character::typeInfo);
  EXPECT_STREQ(Character::typeInfo.m_pName, "Character");
  EXPECT_EQ(nox::RTTIBase::typeInfo.m_pParent, nullptr);
  EXPECT_TRUE(nox::IsA<Character>(asBase));
  EXPECT_TRUE(nox::IsA<Entity>(asBase));
  EXPECT_TRUE(nox::IsA<Agent>(asBase));
  EXPECT_TRUE(nox::IsA<nox::RTTIBase>(asBase));
  EXPECT_FALSE(nox::IsA<Character>(&entity));
  EXPECT_FALSE(nox::IsA<Unrelated>(asBase));
  EXPECT_FALSE(nox::IsA<Agent>(nullptr));

  EXPECT_EQ(nox::TypeCast<Entity>(asBase), static_cast<Entity*>(&character));
  EXPECT_EQ(nox::TypeCast<Unrelated>(asBase), nullptr);
}

TEST(RTTI, AClassWithoutItsOwnRecordAnswersItsParents) {
  PlainEntity plain;
  EXPECT_EQ(plain.GetTypeInfo(), &Entity::typeInfo);
  EXPECT_TRUE(nox::IsA<Agent>(&plain));
}

TEST(RTTI, ComparesNameHashesSoTwoClassesWithOneShortNameCountAsOne) {
  other::Entity stranger;
  EXPECT_TRUE(nox::IsA<Entity>(&stranger));
  EXPECT_FALSE(nox::IsA<Agent>(&stranger));
}

TEST(Tokenize, CutsAtEachDelimiterKeepingEmptyTokens) {
  EXPECT_EQ(nox::Tokenize("a,b,,c", ","), (std::vector<std::string>{"a", "b", "", "c"}));
  EXPECT_EQ(nox::Tokenize("", ","), (std::vector<std::string>{""}));
  EXPECT_EQ(nox::Tokenize("a,", ","), (std::vector<std::string>{"a", ""}));
  EXPECT_EQ(nox::Tokenize(",a", ","), (std::vector<std::string>{"", "a"}));
  EXPECT_EQ(nox::Tokenize("abc", ","), (std::vector<std::string>{"abc"}));
}

TEST(Tokenize, RemovesOnlyOneCharacterOfALongerDelimiter) {
  EXPECT_EQ(nox::Tokenize("a::b::c", "::"), (std::vector<std::string>{"a", ":b", ":c"}));
  EXPECT_EQ(nox::Tokenize("ab", ""), (std::vector<std::string>{"ab"}));
}

}  // namespace
