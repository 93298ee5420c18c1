// meta.inf: what counts as a value, what is reported and ignored, and when a file is valid.
#include <gtest/gtest.h>

#include "../TempDir.h"
#include "ostra/HostConfig.h"
#include "ostra/MetaInfo.h"
#include "system/MetaInfoParser.h"

namespace {

using devicetest::ReadText;
using devicetest::TempDir;
using devicetest::WriteText;
namespace Parser = Hollin::Ostra::MetaInfoParser;
namespace Host = Hollin::Ostra::Host;

TEST(MetaInfoParse, KeysAndValuesAreTrimmedAndCommentsAndBlankLinesSkipped) {
  Parser::Result r = Parser::Parse(
      "\xEF\xBB\xBF# title\r\n"
      "PackageId = CORRIN-0001\r\n"
      "\n"
      "   # indented comment\n"
      "LongName=Corrin and the Five Zones = fun\n"
      "ShortName=Corrin # not a comment\n"
      "Empty=\n"
      "ProductId=42");
  EXPECT_TRUE(r.problems.empty());
  EXPECT_EQ(r.values["PackageId"], "CORRIN-0001");
  // Only the first '=' splits; the rest belongs to the value, '#' included.
  EXPECT_EQ(r.values["LongName"], "Corrin and the Five Zones = fun");
  EXPECT_EQ(r.values["ShortName"], "Corrin # not a comment");
  EXPECT_EQ(r.values.count("Empty"), 1u);
  EXPECT_EQ(r.values["ProductId"], "42");
  EXPECT_EQ(r.values.size(), 5u);
}

TEST(MetaInfoParse, BadLinesAreReportedWithTheirNumberAndDoNotStopTheRest) {
  Parser::Result r = Parser::Parse(
      "PackageId=A\n"
      "just words\n"
      "=value\n"
      "ProductId=12x\n"
      "ProductId=4294967296\n"
      "PackageId=B\n");
  ASSERT_EQ(r.problems.size(), 4u);
  EXPECT_EQ(r.problems[0].rfind("line 2: no '='", 0), 0u) << r.problems[0];
  EXPECT_EQ(r.problems[1].rfind("line 3: empty key", 0), 0u);
  EXPECT_EQ(r.problems[2].rfind("line 4: ProductId is not a number", 0), 0u);
  EXPECT_EQ(r.problems[3].rfind("line 5: ProductId", 0), 0u);
  EXPECT_EQ(r.values["PackageId"], "B");  // a later key wins
  EXPECT_EQ(r.values.count("ProductId"), 0u);
}

class MetaInfoFile : public ::testing::Test {
 protected:
  void SetUp() override {
    Host::HostConfig config;
    config.quiet = true;
    config.logFile = dir / "debug.log";
    Host::SetHostConfig(config);
  }
  void TearDown() override { Host::SetHostConfig(Host::HostConfig()); }
  TempDir dir;
};

TEST_F(MetaInfoFile, ADirectoryOrTheFileItselfMayBeNamed) {
  WriteText(
      dir / "meta.inf",
      "PackageId=PKG-1\nShortName=Short\nLongName=Long\nProductId=7\nPartNumber=P-7\nPackageVersion=1.2\n");
  for (const std::string& path : {dir.Path(), dir / "meta.inf"}) {
    Vantle::CMetaInfo meta(path);
    ASSERT_TRUE(meta.IsValid()) << path;
    EXPECT_EQ(meta.GetPackageId(), "PKG-1");
    EXPECT_EQ(meta.GetShortName(), "Short");
    EXPECT_EQ(meta.GetLongName(), "Long");
    EXPECT_EQ(meta.GetProductId(), 7u);
    EXPECT_EQ(meta.GetPartNumber(), "P-7");
    EXPECT_EQ(meta.GetPackageVersion(), "1.2");
    EXPECT_EQ(meta.GetValue("Nonexistent"), "");
  }
  EXPECT_EQ(ReadText(dir / "debug.log"), "");
}

TEST_F(MetaInfoFile, AFileWithoutPackageIdOrTooLargeIsNotValidAndIsNamedInTheLog) {
  WriteText(dir / "meta.inf", "ShortName=NoId\nbroken line\n");
  Vantle::CMetaInfo noId(dir.Path());
  EXPECT_FALSE(noId.IsValid());
  EXPECT_EQ(noId.GetShortName(), "NoId");
  std::string log = ReadText(dir / "debug.log");
  EXPECT_NE(log.find(dir / "meta.inf" + ": line 2: no '='"), std::string::npos) << log;
  EXPECT_NE(log.find("no PackageId, not valid"), std::string::npos) << log;

  WriteText(dir / "meta.inf", "PackageId=X\n# " + std::string(Parser::kMaxFileBytes, 'x') + "\n");
  EXPECT_FALSE(Vantle::CMetaInfo(dir.Path()).IsValid());
  EXPECT_NE(ReadText(dir / "debug.log").find("larger than"), std::string::npos);

  // A missing file is simply not valid, and says nothing.
  std::string before = ReadText(dir / "debug.log");
  EXPECT_FALSE(Vantle::CMetaInfo(dir / "nowhere").IsValid());
  EXPECT_EQ(ReadText(dir / "debug.log"), before);
}

}  // namespace
