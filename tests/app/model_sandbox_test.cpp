// Hostile basic models through `model show` and a `generate` that converts them: each is
// refused with its reason, nothing is run or left behind, and a model that only includes
// another file is read as before.
#include <filesystem>
#include <string>

#include "hostile_models.h"
#include "program_test.h"

namespace {

namespace fs = std::filesystem;

class ModelSandboxTest : public ProgramTest {};

TEST_F(ModelSandboxTest, HostileModelsAreRefusedAndLeaveNothing) {
  const std::string limit = " --model-time-limit " + std::to_string(hostile::kHostileTimeLimit);
  const std::string converter = ReadBytes(fs::path(EOW_EXAMPLES_DIR) / "converter/Converter.bvg");
  const std::string modelLine = "MODEL=examples\\converter\\Converter.geo\r\n";
  int run = 0;
  for (const hostile::HostileModel& model : hostile::HostileModels(scratch_.Path())) {
    SCOPED_TRACE(model.path);
    const bool read = model.message.empty();
    EXPECT_EQ(Run("model show '" + model.path + "'" + limit), read ? 0 : 1) << err_;
    EXPECT_NE((read ? out_ : err_).find(read ? "Edges (14)" : model.message), std::string::npos)
        << out_ << err_;

    std::string session = converter;
    session.replace(session.find(modelLine), modelLine.size(), "MODEL=" + model.path + "\r\n");
    const std::string project = Path("p" + std::to_string(++run));
    // From the folder the session's paths start from.
    EXPECT_EQ(
        Run("generate " + Session("s.bvg", session) + " --project '" + project +
                "/Converter.vbp' --registry examples/registry/demo-host.reg --answer yes" + limit,
            "cd .. &&"),
        read ? 0 : 1)
        << err_;
    EXPECT_EQ(fs::exists(project + "/Converter.vbp"), read);
    if (!read) {
      EXPECT_NE(out_.find("Error: The basic model '" + model.path + "' could not be opened: "),
                std::string::npos)
          << out_;
      EXPECT_NE(out_.find(model.message), std::string::npos) << out_;
      EXPECT_FALSE(fs::exists(project + "/Converter.cls"));
    }
  }
  for (const fs::path& trace : hostile::Traces(scratch_.Path())) {
    EXPECT_FALSE(fs::exists(trace)) << trace;
  }
}

}  // namespace
