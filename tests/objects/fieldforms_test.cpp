#include "objects/fieldforms.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ZOVEngine {
namespace {

using ::testing::ElementsAre;

std::vector<std::string> KeysOf(const char* component) {
  std::vector<std::string> keys;
  for (const FieldEntry& entry : ListedForms().at(component)) keys.emplace_back(entry.key);
  return keys;
}

TEST(FieldForms, AClassIsListedWithItsKeysInTheOrderOfReading) {
  EXPECT_THAT(KeysOf("StateC"), ElementsAre("m_state"));
  EXPECT_THAT(KeysOf("Camera"), ElementsAre("m_offset", "m_shakemag", "m_xlimit", "m_ylimit"));
}

TEST(FieldForms, AClassHasTheKeysOfItsBaseToo) {
  EXPECT_THAT(KeysOf("ProjectileExplosion"), ElementsAre("m_max_range", "m_curr_range", "m_damage",
                                                         "m_speed", "m_aoe", "m_knockback"));
  EXPECT_THAT(KeysOf("ProjectileSwap"), ElementsAre("m_max_range", "m_curr_range", "m_speed"));
}

TEST(FieldForms, AFieldThatIsCheckedWhenItIsReadIsListedToo) {
  const FieldEntries& entries = ListedForms().at("ParticleSystemC");
  EXPECT_STREQ(entries.back().key, "m_num_of_particles");
  EXPECT_EQ(entries.back().form, FieldForm::kWhole);
}

TEST(FieldForms, EachTypeHasItsForm) {
  EXPECT_EQ(FormOf<bool>(), FieldForm::kFlag);
  EXPECT_EQ(FormOf<int>(), FieldForm::kWhole);
  EXPECT_EQ(FormOf<unsigned>(), FieldForm::kWhole);
  EXPECT_EQ(FormOf<float>(), FieldForm::kNumber);
  EXPECT_EQ(FormOf<std::string>(), FieldForm::kText);
  EXPECT_EQ(FormOf<Vector3D>(), FieldForm::kVector);
  EXPECT_EQ((FormOf<std::array<int, 2>>()), FieldForm::kWholePair);
  EXPECT_EQ((FormOf<std::array<float, 2>>()), FieldForm::kNumberPair);
  EXPECT_EQ((FormOf<std::array<float, 4>>()), FieldForm::kNumberQuad);
  EXPECT_EQ((FormOf<std::array<Vector3D, 2>>()), FieldForm::kVectorPair);
  EXPECT_EQ(FormOf<std::vector<Vector3D>>(), FieldForm::kVectors);
}

}  // namespace
}  // namespace ZOVEngine
