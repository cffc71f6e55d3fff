#include "plugin/client_report.h"

#include <gtest/gtest.h>

#include "plugin/contract/core_access.h"
#include "tests/support/front_end/recording_core.h"
#include "tests/support/front_end/recording_host.h"

namespace {

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

TEST_F(ClientReport, IsWhatTheHostSaysToTheChallenge) {
    struct {
        std::string data;
        const char* report;
    } const cases[] = {
        {"", ""},        {"a", "YQ=="},        {"ab", "YWI="},
        {"abc", "YWJj"}, {"abcd", "YWJjZA=="}, {std::string("\0\xFF\xFE", 3), "AP/+"},
    };
    for (const auto& one : cases) EXPECT_EQ(one.report, Report(one.data));
    EXPECT_EQ("HOST_GET_REPORT_DATA(challenge)", host_.Calls().back());
}

TEST_F(ClientReport, EndsWithAWholeGroupWhenTheServerTakesNoMore) {
    const std::string report = Report(std::string(4096, 'x'));
    EXPECT_LT(report.size(), 4095U);
    EXPECT_GT(report.size(), 4080U);
    EXPECT_EQ(0U, report.size() % 4);
    EXPECT_EQ(std::string::npos, report.find('='));
}

TEST_F(ClientReport, IsEmptyWithoutAHost) {
    g_pfnHostCallBack = nullptr;
    EXPECT_EQ("", BuildClientReport("challenge"));
}

}  // namespace
