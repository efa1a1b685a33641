#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/Collection.h"

namespace host {

class WordApplication;

/// The document in which Word edits a mail: Inspector.WordEditor.
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

/// An add-in of Word, or a template: a file that Word has loaded.
class WordFile : public Automated<WordFile> {
  public:
    static constexpr std::wstring_view defaultName = L"Name";
    static const Members<WordFile> members;

    WordFile(Core& core, std::wstring path, bool installed);

    std::wstring className() const override { return L"WordFile"; }
    std::wstring name() const;

  private:
    std::wstring path_;
    bool installed_;
    bool saved_ = false;
};

/// Word's AddIns or Templates.
class WordFiles : public Collection<WordFiles> {
  public:
    static const Members<WordFiles> members;

    explicit WordFiles(Core& core) : Collection(core) {}

    std::wstring className() const override { return L"WordFiles"; }
    const std::vector<std::shared_ptr<WordFile>>& list() const noexcept { return list_; }
    /// By its name or a path to it.
    static bool isNamed(const std::shared_ptr<WordFile>& file, std::wstring_view name);
    static void noSuchName();

  private:
    automation::Value add(Arguments arguments);

    std::vector<std::shared_ptr<WordFile>> list_;
};

/// Word, as far as it is Outlook's editor. Lives while a mail is edited in it or somebody holds it.
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

  private:
    automation::Object windows() const;
    void quit();

    std::vector<std::shared_ptr<WordDocument>> documents_;
    std::shared_ptr<WordFiles> files_;
    bool quit_ = false;
};

/// Word's Windows or Documents, of which only the number is known.
class WordWindows : public Automated<WordWindows> {
  public:
    static const Members<WordWindows> members;

    WordWindows(Core& core, std::size_t count) : Automated(core), count_(count) {}

    std::wstring className() const override { return L"WordWindows"; }

  private:
    std::size_t count_;
};

}  // namespace host
