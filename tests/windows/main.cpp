#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/windows/child_roles.h"

int main(int count, char** arguments) {
  const char* role = std::getenv(tarvo::test::kRoleVariable);
  if (role != nullptr && *role != '\0') return tarvo::test::PlayRole(role);
  testing::InitGoogleTest(&count, arguments);
  return RUN_ALL_TESTS();
}
