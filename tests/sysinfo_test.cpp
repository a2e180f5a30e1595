#include <gtest/gtest.h>

#include <regex>
#include <string>

#include "sysinfo/describe_system.h"
#include "sysinfo/system_information.h"

namespace {

constexpr std::uint8_t kWorkstation = 1, kServer = 3;
constexpr std::uint16_t kX86 = 0, kArm = 5, kItanium = 6, kX64 = 9;

TEST(SystemInformation, DescribesVersionsInTheTablesOrder) {
  const std::pair<platform::WindowsVersion, std::string> kCases[] = {
      {{6, 0, 7, 2, "SP", 0, kWorkstation, kX86}, "Microsoft Windows Vista  SP (build 7), 32-bit"},
      {{6, 1, 7, 2, "SP", 0, kServer, kItanium}, "Microsoft Windows Server 2008 R2  SP (build 7)"},
      {{10, 0, 7, 2, "SP", 0x0282, kWorkstation, kArm}, "Microsoft  SP (build 7)"},
      {{5, 2, 7, 2, "SP", 0xA002, kServer, kX86},
       "Microsoft Windows Storage Server 2003Enterprise Edition SP (build 7), 32-bit"},
      {{5, 2, 7, 2, "SP", 0x0080, kWorkstation, kX64},
       "Microsoft Windows XP Professional x64 Edition SP (build 7), 64-bit"},
      {{5, 2, 7, 2, "SP", 0x0082, kServer, kItanium},
       "Microsoft Windows Server 2003, Datacenter Edition for Itanium-based Systems SP (build 7)"},
      {{5, 2, 7, 2, "SP", 0x0400, kServer, kX64},
       "Microsoft Windows Server 2003, Standard x64 Edition SP (build 7), 64-bit"},
      {{5, 2, 7, 2, "SP", 0x4082, kServer, kX86},
       "Microsoft Windows Server 2003, Compute Cluster Edition SP (build 7), 32-bit"},
      {{5, 1, 7, 2, "SP", 0x0200, kWorkstation, kX86},
       "Microsoft Windows XP Home Edition SP (build 7), 32-bit"},
      {{5, 1, 7, 2, "SP", 0, kWorkstation, kX86},
       "Microsoft Windows XP Professional SP (build 7), 32-bit"},
      {{6, 0, 7, 2, "SP", 0, kServer, kArm}, "Microsoft Windows Server 2008  SP (build 7)"},
      {{6, 1, 7601, 2, "Service Pack 1", 0, kWorkstation, kX64},
       "Microsoft Windows 7  Service Pack 1 (build 7601), 64-bit"},
      {{5, 2, 7, 2, "SP", 0x8000, kServer, kX86},
       "Microsoft Windows Home ServerStandard Edition SP (build 7), 32-bit"},
      {{5, 2, 7, 2, "SP", 0x0400, kServer, kX86},
       "Microsoft Windows Server 2003, Web Edition SP (build 7), 32-bit"},
      {{5, 0, 7, 2, "SP", 0, kWorkstation, kArm},
       "Microsoft Windows 2000 Professional SP (build 7)"},
      {{5, 0, 7, 2, "SP", 0x0002, kServer, kArm},
       "Microsoft Windows 2000 Advanced Server SP (build 7)"},
      {{5, 0, 7, 2, "SP", 0, kServer, kArm}, "Microsoft Windows 2000 Server SP (build 7)"},
      {{5, 0, 7, 2, "SP", 0x0082, kServer, kX86},
       "Microsoft Windows 2000 Datacenter Server SP (build 7), 32-bit"},
      {{6, 2, 9200, 2, "", 0, kWorkstation, kX64}, "Microsoft  (build 9200), 64-bit"},
      {{4, 10, 7, 2, "", 0, kWorkstation, kX86}, "none"},
      {{6, 1, 7, 1, "", 0, kWorkstation, kX86}, "none"},
  };
  for (const auto& [version, text] : kCases) {
    EXPECT_EQ(DescribeSystem(version).value_or("none"), text);
  }
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
