#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/TemporaryFolder.h"

namespace {

namespace fs = std::filesystem;

/// Runs of the program itself, in a folder of their own.
class Program : public testing::Test {
  protected:
    struct Result {
        int status;
        std::string output;
        std::string errors;
    };

    Program() {
        write("plain.eml", "From: a@example.org\nTo: b@example.org\nSubject: plain\n\nbody\n");
        write("promised.eml", "From: a@example.org\nTo: b@example.org\nSubject: s\n\nsee the attachment\n");
    }

    void write(const std::string& name, const std::string& contents) { folder_.write(name, contents); }

    /// `arguments` as a shell reads them; they may send the output elsewhere.
    Result run(const std::string& arguments, const std::string& input = "/dev/null") {
        const fs::path program = fs::read_symlink("/proc/self/exe").parent_path() / "veltro-host";
        const std::string command = "cd '" + folder_.file("").string() + "' && { '" + program.string() +
                                    "' " + arguments + "; } >output 2>errors <" + input;
        const int status = std::system(command.c_str());  // NOLINT(cert-env33-c)
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, contentsOf("output"), contentsOf("errors")};
    }

    std::string contentsOf(const std::string& name) {
        std::ifstream file(folder_.file(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

  private:
    TemporaryFolder folder_;
};

constexpr char sentPlain[] = "  sent: \"plain\" to b@example.org with account Work\n";

TEST_F(Program, GoesOnAfterAFileThatItCannotRead) {
    const auto text = run("send none.eml plain.eml --set MsgAddAddress=1");
    EXPECT_EQ(text.status, 2);
    EXPECT_EQ(text.output, std::string("plain.eml\n") + sentPlain);
    EXPECT_EQ(text.errors, "veltro-host: none.eml: there is no such file\n");

    const auto json = run("send none.eml plain.eml --set MsgAddAddress=1 --json");
    EXPECT_EQ(json.status, 2);
    EXPECT_NE(json.output.find("{\"event\":\"error\",\"file\":\"none.eml\","), std::string::npos)
        << json.output;
    EXPECT_NE(json.output.find("{\"event\":\"sent\",\"file\":\"plain.eml\","), std::string::npos)
        << json.output;

    const auto imported = run("import none.eml plain.eml");
    EXPECT_EQ(imported.status, 2);
    EXPECT_NE(imported.output.find("\"plain.eml\""), std::string::npos) << imported.output;
    EXPECT_EQ(run("send none.eml").status, 2);
    write("empty.json", "[]");
    EXPECT_EQ(run("send empty.json").errors, "veltro-host: empty.json: holds no message\n");
}

TEST_F(Program, SaysThatItsOutputCannotBeWritten) {
    for (const char* arguments :
         {"--help", "--version", "import plain.eml", "send plain.eml --set MsgAddAddress=1",
          "send plain.eml --set MsgAddAddress=1 --json"}) {
        const auto result = run(std::string(arguments) + " >/dev/full");
        EXPECT_EQ(result.status, 2) << arguments;
        EXPECT_NE(result.errors.find("output could not be written"), std::string::npos) << result.errors;
    }
    // More than a pipe holds, and nobody who reads it.
    write("large.eml", contentsOf("plain.eml") + std::string(1 << 20, 'x'));
    run("import large.eml 2>told; echo $? >status; } | { true");
    EXPECT_EQ(contentsOf("status"), "2\n");
    EXPECT_NE(contentsOf("told").find("output could not be written"), std::string::npos);
}

TEST_F(Program, ReadsTheStandardInput) {
    const auto mail = run("send - --set MsgAddAddress=1", "plain.eml");
    EXPECT_EQ(mail.status, 0) << mail.errors;
    EXPECT_EQ(mail.output, std::string("-\n") + sentPlain);
    ASSERT_EQ(run("import plain.eml >plain").status, 0);
    const auto json = run("send - --set MsgAddAddress=1", "plain");
    EXPECT_EQ(json.output, std::string("plain.eml\n") + sentPlain) << json.errors;
}

TEST_F(Program, TellsOfAnswersThatNothingAskedFor) {
    const auto result =
        run("send plain.eml promised.eml --set MsgAddAddress=1 --answer 'Attachment(s) missing=Yes' --answer "
            "'Attachment(s) missing=No' --answer 'frmNoSubject=txtSubject=a; cmdOK'");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors,
              "veltro-host: nothing asked for the answer \"Attachment(s) missing=No\"\nveltro-host: nothing "
              "asked for the answer \"frmNoSubject=txtSubject=a; cmdOK\"\n");
}

TEST_F(Program, EndsASendWithAnUnansweredPromptAsCancelled) {
    const auto result = run("send promised.eml plain.eml --json");
    EXPECT_EQ(result.status, 3);
    EXPECT_NE(result.output.find("{\"event\":\"cancelled\",\"file\":\"promised.eml\""), std::string::npos);
    EXPECT_EQ(result.output.find("plain.eml"), std::string::npos) << result.output;
}

TEST_F(Program, TakesAndShowsFilesOfAnyName) {
    const std::string name = "caf\xE9\x1B[31m.eml";
    write(name, contentsOf("plain.eml"));
    const auto result = run("send '" + name + "' --set MsgAddAddress=1");
    EXPECT_EQ(result.output, std::string("caf\uFFFD?[31m.eml\n") + sentPlain) << result.errors;
    const auto gone = run("send 'no" + name + "'");
    EXPECT_EQ(gone.errors, "veltro-host: nocaf\uFFFD?[31m.eml: there is no such file\n");
}

TEST_F(Program, WarnsAndInforms) {
    const auto warned = run("send plain.eml --set MsgAddAddress=yes");
    EXPECT_EQ(warned.status, 0);
    EXPECT_EQ(warned.errors, "veltro-host: --set MsgAddAddress: \"yes\" reads as \"1\"\n");
    const auto version = run("--version");
    EXPECT_EQ(version.status, 0);
    EXPECT_TRUE(version.output.starts_with("veltro-host 1.")) << version.output;
}

TEST_F(Program, TellsOfTheMailThatAFirstStartBrings) {
    const std::string arguments =
        "settings --first-run --answer 'frmIntroWizard=cmdNav(1)' --answer 'frmIntroWizard=cmdNav(1)'";
    const auto text = run(arguments);
    EXPECT_EQ(text.status, 0) << text.errors;
    EXPECT_NE(text.output.find("\n  received: \"Introducing Veltro\"\n  form frmIntroWizard: "),
              std::string::npos)
        << text.output;
    const auto json = run(arguments + " --json");
    EXPECT_NE(json.output.find(R"({"event":"received","file":null,"subject":"Introducing Veltro"})"),
              std::string::npos)
        << json.output;
}

TEST_F(Program, CarriesSettingsByAnAdministratorsFile) {
    const auto saved = run("settings export . --set SettingsID=7 --set AttachKeyWords=budget");
    EXPECT_EQ(saved.status, 0) << saved.errors;
    EXPECT_NE(contentsOf("Veltro_Settings.ini").find("\r\nAttachKeyWords=budget\r\n"), std::string::npos);
    const auto read = run("settings import Veltro_Settings.ini --settings kept.json");
    EXPECT_EQ(read.status, 0) << read.errors;
    EXPECT_NE(contentsOf("kept.json").find("\"AttachKeyWords\": \"budget\""), std::string::npos);
    EXPECT_EQ(
        run("settings import Veltro_Settings.ini --settings kept.json --set AttachKeyWords=mine").status, 0);
    EXPECT_NE(contentsOf("kept.json").find("\"AttachKeyWords\": \"mine\""), std::string::npos)
        << "the same identifier again";

    const auto unsaved = run("settings export none");
    EXPECT_EQ(unsaved.status, 1);
    EXPECT_EQ(unsaved.errors, "veltro-host: the settings could not be saved at none\\Veltro_Settings.ini\n");
    const auto unread = run("settings import none.ini --settings kept.json");
    EXPECT_EQ(unread.status, 2);
    EXPECT_EQ(unread.errors, "veltro-host: none.ini: cannot be read as a settings file\n");
}

TEST_F(Program, TellsWhatWasLeftUndone) {
    const std::string arguments =
        "send promised.eml --outlook 9.0 --answer 'Attachment(s) missing=Yes' --set MsgAddAddress=1 --trace";
    const auto text = run(arguments);
    EXPECT_NE(text.output.find("\nleft undone:\n"), std::string::npos) << text.output;
    const auto json = run(arguments + " --json");
    EXPECT_NE(json.output.find("{\"event\":\"skipped\",\"file\":null,\"what\":"), std::string::npos)
        << json.output;
    EXPECT_EQ(run("send plain.eml --set MsgAddAddress=1").output.find("undone"), std::string::npos);
}

}  // namespace
