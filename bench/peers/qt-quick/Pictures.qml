import QtQuick

Flow {
    id: root
    property var files
    property size cell
    property bool reduced: false
    property int ready: 0
    width: 1000
    spacing: 2
    Repeater {
        model: root.files
        Image {
            required property string modelData
            width: root.cell.width
            height: root.cell.height
            asynchronous: true
            cache: false
            sourceSize: root.reduced ? root.cell : undefined
            source: modelData
            onStatusChanged: if (status === Image.Ready) ++root.ready
        }
    }
}
