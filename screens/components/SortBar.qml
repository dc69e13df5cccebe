import QtQuick 1.1
import "style.js" as Style

// The headings of a file list, above the columns of its rows.
Row {
    id: bar

    property QtObject listing
    property bool ascending: listing.ascendingSorted

    function sort(reorder) {
        reorder();
        listing.updateSelectedFiles();
    }

    // Ascending puts folders and small letters first, but new dates and large sizes.
    Heading {
        width: 84
        height: bar.height
        text: "Kind"
        isSorted: bar.listing.typeSorted
        isSmallOnTop: bar.ascending
        onClicked: bar.sort(bar.listing.reorderByType)
    }

    Heading {
        width: bar.width - 84 - 108 - 106
        height: bar.height
        text: "Name"
        isSorted: bar.listing.nameSorted
        isSmallOnTop: bar.ascending
        onClicked: bar.sort(bar.listing.reorderByName)
    }

    Heading {
        width: 108
        height: bar.height
        text: "Date"
        isSorted: bar.listing.dateSorted
        isSmallOnTop: !bar.ascending
        onClicked: bar.sort(bar.listing.reorderByDate)
    }

    Heading {
        width: 106
        height: bar.height
        text: "Size"
        isSorted: bar.listing.sizeSorted
        isSmallOnTop: !bar.ascending
        onClicked: bar.sort(bar.listing.reorderBySize)
    }
}
