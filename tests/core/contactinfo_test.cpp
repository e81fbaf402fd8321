#include "core/contactinfo.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <type_traits>

#include "support/reports.h"

namespace ZOVEngine {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

TEST(ContactInfo, ANewOneIsNoContactAndWithoutPoints) {
  const ContactInfo contact;
  EXPECT_FALSE(contact.collided);
  EXPECT_FALSE(contact.ignored);
  EXPECT_TRUE(contact.contactPoints.empty());
  EXPECT_EQ(contact.normal, Vector3D());
  EXPECT_EQ(contact.relativeVelocity, Vector3D());
  EXPECT_EQ(contact.penetration, 0.0f);
  EXPECT_EQ(contact.normalVelocity, 0.0f);
}

TEST(ContactInfo, HoldsTheTwoPointsThatClippingLeavesAtMost) {
  ContactInfo contact;
  contact.contactPoints.push_back(Vector3D(1, 2, 3));
  contact.contactPoints.push_back(Vector3D(4, 5, 6));
  EXPECT_THAT(contact.contactPoints, ElementsAre(Vector3D(1, 2, 3), Vector3D(4, 5, 6)));
  EXPECT_THAT(carapace_test::ReportOf([&] { contact.contactPoints.push_back(Vector3D()); }),
              HasSubstr("FixedList is full"));
}

TEST(ContactInfo, CopyingOneAllocatesNothing) {
  EXPECT_TRUE(std::is_trivially_copyable_v<ContactInfo>);
}

}  // namespace
}  // namespace ZOVEngine
