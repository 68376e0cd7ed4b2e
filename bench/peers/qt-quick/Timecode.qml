import QtQml

QtObject {
    function padded(n) { return n < 10 ? "0" + n : "" + n }
    function text(seconds) {
        const all = Math.round(seconds * 100), whole = Math.floor(all / 100)
        return padded(Math.floor(whole / 3600)) + ":" + padded(Math.floor(whole / 60) % 60) + ":" +
               padded(whole % 60) + "." + padded(all % 100)
    }
}
