/// A temporary folder of the tool with the staged templates and tilesets, made AppDir for a contest.
#pragma once

#include "store/platform.h"

class ToolFolder
{
public:
    /// Copies the staged data. Failure: an exception that tells the file.
    ToolFolder();
    /// Removes everything below it.
    ~ToolFolder();
    ToolFolder(const ToolFolder&) = delete;
    ToolFolder& operator=(const ToolFolder&) = delete;

    const Path& path() const { return path_; }

    /// Makes a project "demo" of two maps, so that a view can go from one to the other, and opens it. Every
    /// cell of the two differs. Failure: an exception.
    void makeProject() const;

private:
    Path path_;
};
