import QtQuick 1.1
import FileBrowser 1.0 as Fb
import "style.js" as Style

// The two slots for USB sticks: looks for sticks, and lets go of them.
Column {
    id: sticks

    // The slot whose stick is being let go, "A" or "B"; empty when none is.
    property string leaving: ""

    // Where the stick is mounted that is to be copied to.
    property string choice

    signal copyChosen

    spacing: Style.margin

    // Not between an eject and its own scan, which alone knows whether the eject worked.
    function look() {
        if (leaving === "")
            usb.find();
    }

    // Looks what space the stick mounted on a path has now; below 0 when it is gone.
    function freeBytes(path) {
        look();
        if (usb.usbA && usb.usbAPath === path)
            return usb.usbASpace * 1024;
        return usb.usbB && usb.usbBPath === path ? usb.usbBSpace * 1024 : -1;
    }

    function eject(slot) {
        leaving = slot;
        card(slot).news = qsTr("Wait, do not remove");
        afterNews.restart();
    }

    function card(slot) {
        return slot === "A" ? cardA : cardB;
    }

    // Every scan sends both space signals, also when nothing has changed.
    function scanned(slot, isPresent) {
        if (leaving === slot) {
            card(slot).news = isPresent ? qsTr("Still in use, try again") : qsTr("Safe to remove");
            leaving = "";
        }
    }

    function changed(slot) {
        if (leaving !== slot)
            card(slot).news = "";
    }

    function choose(path) {
        choice = path;
        copyChosen();
    }

    StickCard {
        id: cardA
        width: sticks.width
        slot: "A"
        isPresent: usb.usbA
        isLocked: sticks.leaving !== ""
        path: usb.usbAPath
        freeBytes: usb.usbASpace * 1024
        onCopyChosen: sticks.choose(path)
        onEjectChosen: sticks.eject(slot)
    }

    StickCard {
        id: cardB
        width: sticks.width
        slot: "B"
        isPresent: usb.usbB
        isLocked: sticks.leaving !== ""
        path: usb.usbBPath
        freeBytes: usb.usbBSpace * 1024
        onCopyChosen: sticks.choose(path)
        onEjectChosen: sticks.eject(slot)
    }

    Fb.USB {
        id: usb
        onUsbAChanged: sticks.changed("A")
        onUsbBChanged: sticks.changed("B")
        onUsbASpaceChanged: sticks.scanned("A", usbA)
        onUsbBSpaceChanged: sticks.scanned("B", usbB)
    }

    // Flushing blocks everything: the card must say so before.
    Timer {
        id: afterNews
        interval: 100
        onTriggered: sticks.leaving === "A" ? usb.ejectA() : usb.ejectB()
    }

    Timer {
        interval: 2000
        repeat: true
        running: true
        triggeredOnStart: true
        onTriggered: sticks.look()
    }
}
