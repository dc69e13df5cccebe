import QtQuick 1.1
import "style.js" as Style

// The headings of a file list, above the columns of its rows.
Row {
    id: bar

    property QtObject listing
    property bool ascending: listing.ascendingSorted

    height: Style.touch

    function sort(reorder) {
        reorder();
        listing.updateSelectedFiles();
    }

    // Ascending puts folders and small letters first, but new dates and large sizes.
    Heading {
        objectName: "heading:Kind"
        width: Style.kindColumn
        height: bar.height
        text: qsTr("Kind")
        isSorted: bar.listing.typeSorted
        isSmallOnTop: bar.ascending
        onClicked: bar.sort(bar.listing.reorderByType)
    }

    Heading {
        objectName: "heading:Name"
        width: bar.width - Style.kindColumn - Style.dateColumn - Style.sizeColumn
        height: bar.height
        text: qsTr("Name")
        isSorted: bar.listing.nameSorted
        isSmallOnTop: bar.ascending
        onClicked: bar.sort(bar.listing.reorderByName)
    }

    Heading {
        objectName: "heading:Date"
        width: Style.dateColumn
        height: bar.height
        text: qsTr("Date")
        isSorted: bar.listing.dateSorted
        isSmallOnTop: !bar.ascending
        onClicked: bar.sort(bar.listing.reorderByDate)
    }

    Heading {
        objectName: "heading:Size"
        width: Style.sizeColumn
        height: bar.height
        text: qsTr("Size")
        isSorted: bar.listing.sizeSorted
        isSmallOnTop: !bar.ascending
        onClicked: bar.sort(bar.listing.reorderBySize)
    }
}
