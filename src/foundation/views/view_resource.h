#pragma once
// Songs of the catalogue, one for each row.

#include "data/data_resource.h"
#include "foundation/views/data_list_view.h"

class ViewResource : public zelkova::DataListView {
public:
    enum Column : int {
        number,
        title,
        artist,
        artistKana,
        genre,
        releaseDate,
        fileType,
        type,
        intro,
        sabi,
        answer,
        score
    };

    explicit ViewResource(platform::WindowHandle list);

    // The new row's index, -1 when there is no such list.
    int addRow(const DataResource& song);
    bool updateRow(int index, const DataResource& song);

    // In the order of the columns.
    static std::vector<std::string> cells(const DataResource& song);
};

// How much a song is worth: the better known it is, the lower its difficulty number (11 at most) and the
// shorter its record, the more. A sum that does not fit gives the nearest number that does.
int points(int famous, int deficalt, int type);
