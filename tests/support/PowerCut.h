// What a disk may hold after a power cut. Of everything that was not flushed, each piece may have reached the
// disk or not, in any order: a sector of a write, a new length, a name that was made, changed or taken away.
// What a flush of the file or of the folder covered is there for certain.
#pragma once

#include <random>

#include "tests/support/DiskRecorder.h"

namespace suisui::test {

class PowerCut
{
public:
    /// Before the first of \a ops, which must outlive the object.
    PowerCut(const DiskTree& before, const std::vector<DiskOp>& ops);

    /// Goes on to the moment after \a done calls.
    void goTo(std::size_t done);
    /// Whether anything is on its way to the disk.
    [[nodiscard]] bool pending() const;
    /// One state of the disk, in which each piece has arrived with the \a probability.
    [[nodiscard]] DiskTree state(std::mt19937& random, double probability) const;

private:
    struct File
    {
        std::string bytes; ///< on the disk for certain
        std::vector<const DiskOp*> pending;
    };
    struct Folder
    {
        std::map<std::string, int> names; ///< objects by path
        std::vector<const DiskOp*> pending;
    };

    void take(const DiskOp& op);

    const std::vector<DiskOp>& m_ops;
    std::size_t m_done = 0;
    std::map<int, File> m_files;
    std::map<std::string, Folder> m_folders;
};

} // namespace suisui::test
