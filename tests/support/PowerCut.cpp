#include "tests/support/PowerCut.h"

#include <algorithm>
#include <utility>

namespace suisui::test {

namespace {

constexpr std::int64_t sector = 512;

std::string folderPart(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash);
}

void lengthen(std::string& bytes, std::int64_t length)
{
    if (std::cmp_less(bytes.size(), length))
        bytes.resize(static_cast<std::size_t>(length));
}

/// The parts of a write that \a lands says have arrived. A new length may be there without its bytes.
template <typename Lands> void landWrite(std::string& bytes, const DiskOp& op, Lands lands)
{
    const auto end = op.at + static_cast<std::int64_t>(op.bytes.size());
    if (lands())
        lengthen(bytes, end);
    for (std::int64_t from = op.at; from < end;) {
        const std::int64_t to = std::min(end, (from / sector + 1) * sector);
        if (lands()) {
            lengthen(bytes, to);
            bytes.replace(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from), op.bytes,
                          static_cast<std::size_t>(from - op.at), static_cast<std::size_t>(to - from));
        }
        from = to;
    }
}

template <typename Lands> void land(std::string& bytes, const DiskOp& op, Lands lands)
{
    if (op.kind == DiskOp::Write)
        landWrite(bytes, op, lands);
    else if (lands())
        bytes.resize(static_cast<std::size_t>(op.at));
}

void landName(std::map<std::string, int>& names, const DiskOp& op)
{
    if (op.kind == DiskOp::Link) {
        names[op.path] = op.object;
        return;
    }
    if (const auto found = names.find(op.path); found != names.end() && found->second == op.object)
        names.erase(found);
    if (op.kind == DiskOp::Rename)
        names[op.newPath] = op.object;
}

} // namespace

PowerCut::PowerCut(const DiskTree& before, const std::vector<DiskOp>& ops) : m_ops(ops)
{
    int object = 0;
    for (const auto& [path, bytes] : before) {
        m_folders[folderPart(path)].names[path] = object;
        m_files[object++].bytes = bytes;
    }
}

void PowerCut::goTo(std::size_t done)
{
    while (m_done < done)
        take(m_ops[m_done++]);
}

void PowerCut::take(const DiskOp& op)
{
    const auto always = [] { return true; };
    switch (op.kind) {
    case DiskOp::Write:
    case DiskOp::Truncate:
        m_files[op.object].pending.push_back(&op);
        break;
    case DiskOp::SyncFile: {
        File& file = m_files[op.object];
        for (const DiskOp* each : file.pending)
            land(file.bytes, *each, always);
        file.pending.clear();
        break;
    }
    case DiskOp::Link:
    case DiskOp::Unlink:
    case DiskOp::Rename:
        (void)m_files[op.object]; // a file that was never written to is a file
        m_folders[folderPart(op.path)].pending.push_back(&op);
        break;
    case DiskOp::SyncFolder: {
        Folder& folder = m_folders[op.path];
        for (const DiskOp* each : folder.pending)
            landName(folder.names, *each);
        folder.pending.clear();
        break;
    }
    }
}

bool PowerCut::pending() const
{
    const auto waits = [](const auto& entry) { return !entry.second.pending.empty(); };
    return std::any_of(m_files.begin(), m_files.end(), waits)
           || std::any_of(m_folders.begin(), m_folders.end(), waits);
}

DiskTree PowerCut::state(std::mt19937& random, double probability) const
{
    std::bernoulli_distribution arrives(probability);
    const auto lands = [&] { return arrives(random); };
    DiskTree tree;
    for (const auto& [path, folder] : m_folders) {
        std::map<std::string, int> names = folder.names;
        for (const DiskOp* op : folder.pending)
            if (lands())
                landName(names, *op);
        for (const auto& [name, object] : names) {
            const File& file = m_files.at(object);
            std::string bytes = file.bytes;
            for (const DiskOp* op : file.pending)
                land(bytes, *op, lands);
            tree[name] = std::move(bytes);
        }
    }
    return tree;
}

} // namespace suisui::test
