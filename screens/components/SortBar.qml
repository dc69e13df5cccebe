import QtQuick 1.1
import "style.js" as Style

// The headings of a file list, above the columns of its rows.
Row {
    id: bar

    property QtObject directory
    property bool ascending: directory.ascendingSorted

    // Ascending puts folders and small letters first, but new dates and large sizes.
    Heading {
        width: 84
        height: bar.height
        text: "Kind"
        isSorted: bar.directory.typeSorted
        isSmallOnTop: bar.ascending
        onClicked: bar.directory.reorderByType()
    }

    Heading {
        width: bar.width - 84 - 108 - 106
        height: bar.height
        text: "Name"
        isSorted: bar.directory.nameSorted
        isSmallOnTop: bar.ascending
        onClicked: bar.directory.reorderByName()
    }

    Heading {
        width: 108
        height: bar.height
        text: "Date"
        isSorted: bar.directory.dateSorted
        isSmallOnTop: !bar.ascending
        onClicked: bar.directory.reorderByDate()
    }

    Heading {
        width: 106
        height: bar.height
        text: "Size"
        isSorted: bar.directory.sizeSorted
        isSmallOnTop: !bar.ascending
        onClicked: bar.directory.reorderBySize()
    }
}
