import QtQuick

Item {
    id: root
    property var model
    property real total
    width: 1000
    height: 16
    Rectangle {
        anchors.fill: parent
        radius: 2
        color: "transparent"
        border.width: 1
    }
    Repeater {
        model: root.model
        Rectangle {
            required property real start
            required property real end
            x: start / root.total * root.width
            width: (end - start) / root.total * root.width
            height: root.height
            radius: 2
            color: "black"
        }
    }
}
