#include <gtest/gtest.h>

#include <regex>
#include <string>

#include "sysinfo/describe_system.h"
#include "sysinfo/system_information.h"

namespace {

constexpr std::uint8_t kWorkstation = 1, kServer = 3;
constexpr std::uint16_t kX86 = 0, kArm = 5, kItanium = 6, kX64 = 9;

TEST(SystemInformation, DescribesVersionsInTheTablesOrder) {
  const struct {
    std::uint32_t major, minor;
    std::uint8_t productType;
    std::uint16_t suiteMask, architecture;
    const char* text;
  } kCases[] = {
      {6, 0, kWorkstation, 0, kX86, "Windows Vista  SP (build 7), 32-bit"},
      {6, 1, kServer, 0, kItanium, "Windows Server 2008 R2  SP (build 7)"},
      {10, 0, kWorkstation, 0x0282, kArm, " SP (build 7)"},
      {5, 2, kServer, 0xA002, kX86,
       "Windows Storage Server 2003Enterprise Edition SP (build 7), 32-bit"},
      {5, 2, kWorkstation, 0x0080, kX64,
       "Windows XP Professional x64 Edition SP (build 7), 64-bit"},
      {5, 2, kServer, 0x0082, kItanium,
       "Windows Server 2003, Datacenter Edition for Itanium-based Systems SP (build 7)"},
      {5, 2, kServer, 0x0400, kX64,
       "Windows Server 2003, Standard x64 Edition SP (build 7), 64-bit"},
      {5, 2, kServer, 0x4082, kX86,
       "Windows Server 2003, Compute Cluster Edition SP (build 7), 32-bit"},
      {5, 1, kWorkstation, 0x0200, kX86, "Windows XP Home Edition SP (build 7), 32-bit"},
      {5, 0, kServer, 0x0082, kX86, "Windows 2000 Datacenter Server SP (build 7), 32-bit"},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(
        DescribeSystem({c.major, c.minor, 7, 2, "SP", c.suiteMask, c.productType, c.architecture}),
        std::string("Microsoft ") + c.text);
  }
  EXPECT_EQ(DescribeSystem({6, 2, 9200, 2, "", 0, kWorkstation, kX64}),
            "Microsoft  (build 9200), 64-bit");
  EXPECT_FALSE(DescribeSystem({4, 10, 7, 2, "", 0, kWorkstation, kX86}));
  EXPECT_FALSE(DescribeSystem({6, 1, 7, 1, "", 0, kWorkstation, kX86}));
  EXPECT_EQ(DescribeSystem({"Linux", "6.1", 64}), "Linux 6.1, 64-bit");
}

TEST(SystemInformation, VersionStringStaysInsideItsBuffer) {
  wchar_t text[] = L".....";
  ASSERT_TRUE(GetVersionString(&text[0], 4));
  EXPECT_EQ(text[3], L'\0');
  EXPECT_EQ(text[4], L'.');
  EXPECT_FALSE(GetVersionString(&text[0], 0));
}

TEST(SystemInformation, MemoryTextHoldsBothSizes) {
  std::smatch sizes;
  const std::string text = LogPeakMemoryUsage();
  const std::regex form("(\\d+) Kb\t\tPeak Memory Usage :(\\d+) Kb\t");
  ASSERT_TRUE(std::regex_match(text, sizes, form));
  EXPECT_GT(std::stoi(sizes[1]), 100);
  EXPECT_GE(std::stoi(sizes[2]), std::stoi(sizes[1]));
}

}  // namespace
