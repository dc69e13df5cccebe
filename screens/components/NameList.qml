import QtQuick 1.1
import "style.js" as Style

// Names one below the other, each with a remark if there is one.
Item {
    id: nameList

    property int count: rows.count
    property bool hasRemarks: false

    // The height at which nothing needs to be scrolled.
    property int fullHeight: rows.count * rowHeight
    property int rowHeight: hasRemarks ? Style.touch : 32

    // Takes objects with name and remark.
    function show(entries) {
        rows.clear();
        hasRemarks = entries.length > 0 && entries[0].remark !== "";
        for (var i = 0; i < entries.length; ++i)
            rows.append(entries[i]);
        view.positionViewAtIndex(0, ListView.Beginning);
    }

    ListModel {
        id: rows
    }

    Rectangle {
        anchors.fill: parent
        color: Style.surface
        border.color: Style.line
        border.width: 1
    }

    ListView {
        id: view
        objectName: "names"
        anchors { fill: parent; margins: 1 }
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        model: rows
        delegate: Item {
            objectName: "named:" + model.name
            width: view.width
            height: nameList.rowHeight

            Label {
                objectName: "namedName"
                anchors { left: parent.left; leftMargin: 12; right: parent.right; rightMargin: Style.scrollColumn }
                y: nameList.hasRemarks ? 5 : 0
                height: nameList.hasRemarks ? 22 : parent.height
                text: model.name
                elide: Text.ElideMiddle
            }

            Label {
                objectName: "namedRemark"
                anchors { left: parent.left; leftMargin: 12; right: parent.right; rightMargin: Style.scrollColumn }
                y: 28
                height: 22
                visible: nameList.hasRemarks
                text: model.remark
                color: Style.faintText
            }
        }
    }

    ScrollMark {
        list: view
    }
}
