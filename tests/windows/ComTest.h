#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <objbase.h>

#include <memory>

#include "platform/windows/Exporter.h"
#include "platform/windows/LiveObjects.h"

/// Two sides of a COM call in one apartment, as the host and the add-in's DLL are: each has its own exporter,
/// so neither sees through the other's objects. Nothing may be left of them at the end.
class ComTest : public testing::Test {
  protected:
    ComTest() { CoInitialize(nullptr); }
    ~ComTest() override { CoUninitialize(); }

    void TearDown() override {
        EXPECT_EQ(hostObjects.count(), 0);
        EXPECT_EQ(addInObjects.count(), 0);
    }

    /// A host's object as the add-in gets it.
    automation::Object toAddIn(const automation::Object& hostObject) {
        return addIn->toObject(host->exportObject(hostObject).get());
    }

    platform::windows::LiveObjects hostObjects;
    platform::windows::LiveObjects addInObjects;
    std::shared_ptr<platform::windows::Exporter> host = platform::windows::Exporter::make(hostObjects);
    std::shared_ptr<platform::windows::Exporter> addIn = platform::windows::Exporter::make(addInObjects);
};
