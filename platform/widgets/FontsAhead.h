// Reading what fonts there are takes a fifth of the start, and nothing of the start before its first text
// needs it. So it is read beside the start, and the first text waits for it only if it comes earlier.
//
//     const FontsAhead configuration(FontsAhead::readConfiguration);
//     QApplication application(argc, argv);
//     const FontsAhead families(FontsAhead::readFamilies);
#pragma once

#include <thread>

namespace suisui {

class FontsAhead
{
public:
    /// Runs \a work beside the caller; where no thread is to be had, the first text does it itself.
    explicit FontsAhead(void (*work)());
    /// Waits until it is done.
    ~FontsAhead();
    FontsAhead(const FontsAhead&) = delete;
    FontsAhead& operator=(const FontsAhead&) = delete;

    /// The font library's own files. Needs no application.
    static void readConfiguration();
    /// The fonts that they name. Needs the application.
    static void readFamilies();

private:
    std::thread m_helper;
};

} // namespace suisui
