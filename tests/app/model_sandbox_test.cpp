// Hostile basic models through `model show`, and one through a `generate` that converts
// it: each is refused with its reason, nothing is run or left behind, and a model that only
// includes another file is read as before.
#include <filesystem>
#include <string>

#include "hostile_models.h"
#include "program_test.h"

namespace {

namespace fs = std::filesystem;

class ModelSandboxTest : public ProgramTest {};

TEST_F(ModelSandboxTest, HostileModelsAreRefusedAndLeaveNothing) {
  const std::string limit = " --model-time-limit " + std::to_string(hostile::kHostileTimeLimit);
  hostile::HostileModel refused;  // one, for the generation below
  for (const hostile::HostileModel& model : hostile::HostileModels(scratch_.Path())) {
    SCOPED_TRACE(model.path);
    const bool read = model.message.empty();
    EXPECT_EQ(Run("model show '" + model.path + "'" + limit), read ? 0 : 1) << err_;
    EXPECT_NE((read ? out_ : err_).find(read ? "Edges (14)" : model.message), std::string::npos)
        << out_ << err_;
    if (refused.path.empty() && !read) refused = model;
  }
  // A generation that converts the model reads it the same way, and stops before any file.
  std::string session = ReadBytes(fs::path(EOW_EXAMPLES_DIR) / "converter/Converter.bvg");
  const std::string modelLine = "MODEL=examples\\converter\\Converter.geo\r\n";
  session.replace(session.find(modelLine), modelLine.size(), "MODEL=" + refused.path + "\r\n");
  EXPECT_EQ(Run("generate " + Session("s.bvg", session) + " --project '" + Path("p") +
                    "/Converter.vbp' --registry examples/registry/demo-host.reg --answer yes" +
                    limit,
                "cd .. &&"),
            1);
  EXPECT_NE(out_.find("Error: The basic model '" + refused.path + "' could not be opened: "),
            std::string::npos)
      << out_;
  EXPECT_NE(out_.find(refused.message), std::string::npos) << out_;
  EXPECT_FALSE(fs::exists(Path("p/Converter.cls")));
  for (const fs::path& trace : hostile::Traces(scratch_.Path())) {
    EXPECT_FALSE(fs::exists(trace)) << trace;
  }
}

}  // namespace
