/// For tests that start with a new project, "demo", in a tool folder of their own.
#pragma once

#include "appdir.h"

#include <gtest/gtest.h>

class InProject : public testing::Test
{
protected:
    InProject() { app.makeProject(); }

    TemporaryAppDir app;
};
