#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/Automated.h"

namespace host {

class WordApplication;

/// The document in which Word edits a mail: Inspector.WordEditor.
class WordDocument : public Automated<WordDocument> {
  public:
    static constexpr std::wstring_view defaultName = L"Name";
    static std::span<const Member<WordDocument>> members();

    WordDocument(World& world, std::wstring name, std::weak_ptr<WordApplication> application);

    std::wstring className() const override { return L"WordDocument"; }
    void checkUsable() const override;
    void closed() { closed_ = true; }

  private:
    static const Member<WordDocument> table_[];
    std::wstring name_;
    bool saved_ = true;
    bool closed_ = false;
    std::weak_ptr<WordApplication> application_;
};

/// An add-in of Word, or a template: a file that Word has loaded.
class WordFile : public Automated<WordFile> {
  public:
    static constexpr std::wstring_view defaultName = L"Name";
    static std::span<const Member<WordFile>> members();

    WordFile(World& world, std::wstring path, bool installed);

    std::wstring className() const override { return L"WordFile"; }
    std::wstring name() const;

  private:
    static const Member<WordFile> table_[];
    std::wstring path_;
    bool installed_;
    bool saved_ = false;
};

/// Word's AddIns or Templates.
class WordFiles : public Automated<WordFiles> {
  public:
    static std::span<const Member<WordFiles>> members();

    explicit WordFiles(World& world) : Automated(world) {}

    std::wstring className() const override { return L"WordFiles"; }

  private:
    static const Member<WordFiles> table_[];
    std::shared_ptr<WordFile> find(std::wstring_view name) const;

    std::vector<std::shared_ptr<WordFile>> list_;
};

/// Word, as far as it is Outlook's editor. Lives while a mail is edited in it or somebody holds it.
class WordApplication : public Automated<WordApplication> {
  public:
    static constexpr std::wstring_view defaultName = L"Name";
    static std::span<const Member<WordApplication>> members();

    explicit WordApplication(World& world);

    std::wstring className() const override { return L"WordApplication"; }
    void checkUsable() const override;
    std::shared_ptr<WordDocument> open(std::wstring name);
    void closed(const WordDocument& document);
    bool running() const noexcept { return !quit_; }

  private:
    static const Member<WordApplication> table_[];
    std::vector<std::shared_ptr<WordDocument>> documents_;
    std::shared_ptr<WordFiles> files_;
    bool quit_ = false;
};

/// Word's Windows or Documents, of which only the number is known.
class WordWindows : public Automated<WordWindows> {
  public:
    static std::span<const Member<WordWindows>> members();

    WordWindows(World& world, std::size_t count) : Automated(world), count_(count) {}

    std::wstring className() const override { return L"WordWindows"; }

  private:
    static const Member<WordWindows> table_[];
    std::size_t count_;
};

}  // namespace host
