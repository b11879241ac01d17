// SPDX-License-Identifier: MIT
#include <fstream>
#include <string>
#include <vector>

#include <sys/stat.h>

#include "media/sha256.h"
#include "media/writer_fixture.h"

namespace {

using namespace framenote::test;

using Sha256File = WriterTest;

// FIPS 180-4's examples, as NIST publishes them.
constexpr char kOfNothing[] = "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855";
constexpr char kOfAbc[] = "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad";
constexpr char kOfTwoBlocks[] = "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1";
constexpr char kOfMillion[] = "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0";

TEST(Sha256Bytes, HavePublishedSums) {
  std::string const twoBlocks = "abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq";
  EXPECT_EQ(Sha256OfBytes("", 0), kOfNothing);
  EXPECT_EQ(Sha256OfBytes("abc", 3), kOfAbc);
  EXPECT_EQ(Sha256OfBytes(twoBlocks.data(), twoBlocks.size()), kOfTwoBlocks);
}

TEST(Sha256Bytes, MayComeInParts) {
  std::string const part(7, 'a');
  Sha256 sum;
  for (int i = 0; i < 142857; ++i) sum.Add(part.data(), part.size());
  sum.Add("a", 1);
  EXPECT_EQ(sum.Finish(), kOfMillion);
}

TEST_F(Sha256File, IsReadWhole) {
  std::ofstream(PathOf("million")) << std::string(1000000, 'a');
  std::ofstream(PathOf("empty")).flush();
  EXPECT_EQ(Sha256OfFile(PathOf("million")), kOfMillion);
  EXPECT_EQ(Sha256OfFile(PathOf("empty")), kOfNothing);
}

TEST_F(Sha256File, AgreesWithTheSystemOverManyChunks) {
  Picture const noise = Noise(1000, 1001, 1);
  std::ofstream(PathOf("noise"), std::ios::binary) << Bytes(noise);
  std::string const expected = Output("sha256sum '" + PathOf("noise") + "'").substr(0, 64);
  std::vector<double> parts;
  EXPECT_EQ(Sha256OfFile(PathOf("noise"),
                         [&parts](double part) {
                           parts.push_back(part);
                           return true;
                         }),
            expected);
  // 3,003,000 bytes are three chunks of 1 MiB.
  ASSERT_EQ(parts.size(), 4U);
  EXPECT_EQ(parts[0], 0.0);
  EXPECT_EQ(parts[1], 1048576.0 / 3003000.0);
  EXPECT_EQ(parts[3], 1.0);
}

TEST_F(Sha256File, StopsWhenAsked) {
  std::ofstream(PathOf("noise"), std::ios::binary) << Bytes(Noise(1000, 1001, 1));
  int calls = 0;
  EXPECT_EQ(ProblemOf([&] { Sha256OfFile(PathOf("noise"), [&](double) { return ++calls < 2; }); }),
            MediaProblem::Cancelled);
  EXPECT_EQ(calls, 2);
}

TEST_F(Sha256File, TellsWhatIsWrong) {
  EXPECT_EQ(ProblemOf([&] { Sha256OfFile(PathOf("none")); }), MediaProblem::NotFound);
  EXPECT_EQ(ProblemOf([&] { Sha256OfFile(m_folder.string()); }), MediaProblem::NotAFile);
  ASSERT_EQ(mkfifo(PathOf("pipe").c_str(), 0600), 0);
  EXPECT_EQ(ProblemOf([&] { Sha256OfFile(PathOf("pipe")); }), MediaProblem::NotAFile);
}

}  // namespace
