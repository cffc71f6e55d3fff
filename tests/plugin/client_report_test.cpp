#include "plugin/client_report.h"

#include <gtest/gtest.h>

#include "platform/digest/sha512.h"
#include "plugin/contract/core_access.h"
#include "tests/support/front_end/recording_core.h"
#include "tests/support/front_end/recording_host.h"

namespace {

std::string Bytes(const digest::Sha512Digest& digest) { return {digest.begin(), digest.end()}; }

std::string Sha512Of(const std::string& bytes) {
    digest::Sha512Digest made = {};
    EXPECT_TRUE(digest::Sha512(bytes, made));
    return Bytes(made);
}

std::string Hex(const std::string& bytes) {
    std::string hex;
    for (const char byte : bytes) {
        hex += "0123456789abcdef"[static_cast<unsigned char>(byte) >> 4];
        hex += "0123456789abcdef"[static_cast<unsigned char>(byte) & 15];
    }
    return hex;
}

class ClientReport : public ::testing::Test {
protected:
    std::string Report(const std::string& data) {
        host_.report_data = data;
        return BuildClientReport("challenge");
    }

    tests::RecordingCore core_;
    tests::RecordingHost host_;
    tests::FrontEndDoors doors_{core_, host_};
};

// From FIPS 180-4's published examples.
TEST(Sha512, AgreesWithThePublishedExamples) {
    EXPECT_EQ(
        "ddaf35a193617abacc417349ae20413112e6fa4e89a97ea20a9eeee64b55d39a"
        "2192992a274fc1a836ba3c23a3feebbd454d4423643ce80e2a9ac94fa54ca49f",
        Hex(Sha512Of("abc")));
    EXPECT_EQ(
        "8e959b75dae313da8cf4f72814fc143f8f7779c6eb9f7fa17299aeadb6889018"
        "501d289e4900f7e4331b99dec4b5433ac7d329eeb6dd26545e96e55b874be909",
        Hex(Sha512Of("abcdefghbcdefghicdefghijdefghijkefghijklfghijklmghijklmnhijklmno"
                     "ijklmnopjklmnopqklmnopqrlmnopqrsmnopqrstnopqrstu")));
}

TEST_F(ClientReport, DigestsChallengeAndDataBetweenItsSalts) {
    const std::string data = std::string(80, 'h') + '\0' + "tail";
    const std::string all =
        std::string("challenge") + REPORT_SALT_FIRST + data + REPORT_SALT_SECOND;
    const std::string report = Report(data);
    EXPECT_EQ(EncodeReport(Sha512Of(all), 4095), report);
    EXPECT_EQ(88U, report.size());
    EXPECT_EQ("HOST_GET_REPORT_DATA(challenge)", host_.Calls().back());
}

TEST_F(ClientReport, HoldsTheDataItselfWhenThatIsTooShortForADigest) {
    const std::string zeros(64, '\0');
    for (const std::size_t size : {0U, 1U, 63U}) {
        std::string data(size, 'd');
        data += zeros.substr(size);
        EXPECT_EQ(EncodeReport(data, 4095), Report(data.substr(0, size))) << size;
    }
    EXPECT_NE(EncodeReport(std::string(64, 'd'), 4095), Report(std::string(64, 'd')));
    g_pfnHostCallBack = nullptr;
    EXPECT_EQ(EncodeReport(zeros, 4095), BuildClientReport("challenge"));
}

TEST_F(ClientReport, DigestSaysHowLongItIs) {
    std::vector<unsigned char> buffer(100, 7);
    const auto before = buffer;
    for (const int size : {-1, 0, 63}) {
        int length = size;
        EXPECT_EQ(0, DigestReport("text", 4, buffer.data(), &length)) << size;
        EXPECT_EQ(64, length);
    }
    int length = 100;
    EXPECT_EQ(0, DigestReport("text", 4, nullptr, &length));
    EXPECT_EQ(64, length);
    EXPECT_EQ(before, buffer);
    length = 100;
    EXPECT_EQ(64, DigestReport("text", 4, buffer.data(), &length));
    EXPECT_EQ(64, length);
    EXPECT_NE(before, buffer);
    EXPECT_TRUE(std::equal(before.begin() + 64, before.end(), buffer.begin() + 64));
}

TEST(EncodeReport, PadsTheLastGroupAndKeepsInsideItsCapacity) {
    struct {
        std::string bytes;
        const char* text;
    } const cases[] = {
        {"", ""},        {"a", "YQ=="},        {"ab", "YWI="},
        {"abc", "YWJj"}, {"abcd", "YWJjZA=="}, {std::string("\0\xFF\xFE", 3), "AP/+"},
    };
    for (const auto& one : cases) EXPECT_EQ(one.text, EncodeReport(one.bytes, 4095));
    const std::string cut = EncodeReport(std::string(4096, 'x'), 4095);
    EXPECT_LT(cut.size(), 4095U);
    EXPECT_GT(cut.size(), 4080U);
    EXPECT_EQ(0U, cut.size() % 4);
    EXPECT_EQ(std::string::npos, cut.find('='));
}

}  // namespace
