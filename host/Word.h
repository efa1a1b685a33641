#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/BasicInterpreter.h"
#include "host/Collection.h"

namespace host {

class WordApplication;

/// A document of the user's own, or the one in which Word edits a mail: Inspector.WordEditor.
class WordDocument : public Automated<WordDocument> {
  public:
    static constexpr std::wstring_view defaultName = L"Name";
    static const Members<WordDocument> members;

    WordDocument(Core& core, std::wstring name, std::weak_ptr<WordApplication> application);

    std::wstring className() const override { return L"WordDocument"; }
    void checkUsable() const override;
    void closed() { closed_ = true; }

  private:
    std::wstring name_;
    bool saved_ = true;
    bool closed_ = false;
    std::weak_ptr<WordApplication> application_;
};

/// A template that Word has loaded.
class WordFile : public Automated<WordFile> {
  public:
    static constexpr std::wstring_view defaultName = L"Name";
    static const Members<WordFile> members;

    WordFile(Core& core, std::wstring path, bool installed);

    std::wstring className() const override { return L"WordFile"; }
    std::wstring name() const;
    const std::wstring& path() const noexcept { return path_; }
    /// Its macros can be run.
    bool installed() const noexcept { return installed_; }
    /// Word does not ask whether to save it.
    bool saved() const noexcept { return saved_; }
    const BasicInterpreter& macros() const noexcept { return macros_; }

  private:
    std::wstring path_;
    bool installed_;
    bool saved_ = false;
    BasicInterpreter macros_;
};

/// Word's AddIns: the files that it has loaded, by their names or their full paths.
class WordFiles : public Collection<WordFiles> {
  public:
    static const Members<WordFiles> members;

    explicit WordFiles(Core& core) : Collection(core) {}

    std::wstring className() const override { return L"WordFiles"; }
    const std::vector<std::shared_ptr<WordFile>>& list() const noexcept { return list_; }
    static bool isNamed(const std::shared_ptr<WordFile>& file, std::wstring_view name);
    static void noSuchName();

  private:
    automation::Value add(Arguments arguments);

    std::vector<std::shared_ptr<WordFile>> list_;
};

/// Word's Templates: the same files, by their names only.
class WordTemplates : public Collection<WordTemplates> {
  public:
    static constexpr auto noSuchName = WordFiles::noSuchName;
    static const Members<WordTemplates> members;

    WordTemplates(Core& core, std::shared_ptr<WordFiles> files)
        : Collection(core), files_(std::move(files)) {}

    std::wstring className() const override { return L"WordTemplates"; }
    const std::vector<std::shared_ptr<WordFile>>& list() const noexcept { return files_->list(); }
    static bool isNamed(const std::shared_ptr<WordFile>& file, std::wstring_view name);

  private:
    std::shared_ptr<WordFiles> files_;
};

/// The window of a document.
class WordWindow : public Automated<WordWindow> {
  public:
    static constexpr std::wstring_view defaultName = L"Caption";
    static const Members<WordWindow> members;

    WordWindow(Core& core, std::shared_ptr<WordDocument> document)
        : Automated(core), document_(std::move(document)) {}

    std::wstring className() const override { return L"WordWindow"; }

  private:
    std::shared_ptr<WordDocument> document_;
};

/// Word's Windows, one for each document.
class WordWindows : public Collection<WordWindows> {
  public:
    static constexpr auto noSuchName = WordFiles::noSuchName;
    static const Members<WordWindows> members;

    WordWindows(Core& core, std::vector<std::shared_ptr<WordWindow>> list)
        : Collection(core), list_(std::move(list)) {}

    std::wstring className() const override { return L"WordWindows"; }
    const std::vector<std::shared_ptr<WordWindow>>& list() const noexcept { return list_; }
    static bool isNamed(const std::shared_ptr<WordWindow>&, std::wstring_view) { return false; }

  private:
    std::vector<std::shared_ptr<WordWindow>> list_;
};

/// Word, as far as it is Outlook's editor. Once started it runs until it quits.
class WordApplication : public Automated<WordApplication> {
  public:
    static constexpr std::wstring_view defaultName = L"Name";
    static const Members<WordApplication> members;

    explicit WordApplication(Core& core);

    std::wstring className() const override { return L"WordApplication"; }
    void checkUsable() const override;
    std::shared_ptr<WordDocument> open(std::wstring name);
    void closed(const WordDocument& document);
    bool running() const noexcept { return !quit_; }
    /// Of files that it has loaded, those that are not saved.
    bool asksToSaveTemplates() const;
    void quit();
    /// It stays open without a document.
    void startedByUser() { startedByUser_ = true; }
    bool userControl() const;

  private:
    automation::Value run(Arguments arguments);
    automation::Object windows() const;

    std::vector<std::shared_ptr<WordDocument>> documents_;
    std::shared_ptr<WordFiles> files_;
    std::shared_ptr<WordTemplates> templates_;
    bool startedByUser_ = false;
    bool quit_ = false;
};

}  // namespace host
