// Finds words in the pages beside this file. `SECTIONS`, which stands before it, has [file, name, page, heading, text]
// of each section.
(function () {
  "use strict";
  var MOST = 60, AROUND = 60;

  function wordsOf(text) {
    return text.toLowerCase().split(/\s+/).filter(function (word) { return word.length > 0; });
  }

  // Sections with all of the words, those first whose headings have them.
  function find(text) {
    var words = wordsOf(text), found = [];
    if (words.join("").length < 2) return found;
    SECTIONS.forEach(function (section, order) {
      var heading = (section[2] + " " + section[3]).toLowerCase(), body = section[4].toLowerCase(), weight = 0;
      for (var i = 0; i < words.length; ++i) {
        var inHeading = heading.indexOf(words[i]) >= 0;
        if (!inHeading && body.indexOf(words[i]) < 0) return;
        if (inHeading) weight += 10;
        weight += Math.min(5, body.split(words[i]).length - 1);
      }
      if (words.length > 1 && body.indexOf(words.join(" ")) >= 0) weight += 8;
      found.push({section: section, weight: weight, order: order});
    });
    return found.sort(function (a, b) { return b.weight - a.weight || a.order - b.order; });
  }

  // A piece of the text around the first of the words.
  function pieceOf(text, words) {
    var at = -1;
    words.forEach(function (word) {
      var here = text.toLowerCase().indexOf(word);
      if (here >= 0 && (at < 0 || here < at)) at = here;
    });
    var from = Math.max(0, at - AROUND), to = Math.min(text.length, Math.max(at, 0) + 2 * AROUND);
    return (from > 0 ? "\u2026" : "") + text.slice(from, to) + (to < text.length ? "\u2026" : "");
  }

  // [text, marked or not] in their order.
  function cut(text, words) {
    var parts = [], low = text.toLowerCase(), from = 0;
    while (from < text.length) {
      var at = -1, length = 0;
      words.forEach(function (word) {
        var here = low.indexOf(word, from);
        if (here >= 0 && (at < 0 || here < at || (here === at && word.length > length))) {
          at = here;
          length = word.length;
        }
      });
      if (at < 0) break;
      if (at > from) parts.push([text.slice(from, at), false]);
      parts.push([text.slice(at, at + length), true]);
      from = at + length;
    }
    if (from < text.length) parts.push([text.slice(from), false]);
    return parts;
  }

  if (typeof module !== "undefined") module.exports = {find: find, pieceOf: pieceOf, cut: cut, wordsOf: wordsOf};
  if (typeof document === "undefined") return;

  function marked(text, words) {
    var all = document.createDocumentFragment();
    cut(text, words).forEach(function (part) {
      var node = document.createTextNode(part[0]);
      if (part[1]) {
        var mark = document.createElement("mark");
        mark.appendChild(node);
        node = mark;
      }
      all.appendChild(node);
    });
    return all;
  }

  function markPage(words) {
    var walker = document.createTreeWalker(document.querySelector("main"), NodeFilter.SHOW_TEXT), texts = [];
    while (walker.nextNode())
      if (!walker.currentNode.parentNode.closest("svg, .search")) texts.push(walker.currentNode);
    texts.forEach(function (node) {
      if (words.some(function (word) { return node.data.toLowerCase().indexOf(word) >= 0; }))
        node.parentNode.replaceChild(marked(node.data, words), node);
    });
  }

  function show(box, list, told) {
    var words = wordsOf(box.value), found = find(box.value);
    list.textContent = "";
    told.textContent = words.join("").length < 2 ? "" : found.length === 0 ? "Not found" : found.length + " found";
    found.slice(0, MOST).forEach(function (one) {
      var section = one.section, link = document.createElement("a"), item = document.createElement("li");
      link.href = section[0] + "?find=" + encodeURIComponent(box.value) + (section[1] ? "#" + section[1] : "");
      link.appendChild(marked(section[3] === section[2] ? section[2] : section[2] + ": " + section[3], words));
      item.appendChild(link);
      var piece = document.createElement("p");
      piece.appendChild(marked(pieceOf(section[4], words), words));
      item.appendChild(piece);
      list.appendChild(item);
    });
  }

  var box = document.getElementById("find"), list = document.getElementById("found"), told = document.getElementById("told");
  document.querySelector(".search").hidden = false;
  box.addEventListener("input", function () { show(box, list, told); });
  box.form.addEventListener("submit", function (event) {
    event.preventDefault();
    var first = list.querySelector("a");
    if (first) window.location.href = first.href;
  });
  var asked = new URLSearchParams(window.location.search).get("find");
  if (!asked) return;
  box.value = asked;
  show(box, list, told);
  markPage(wordsOf(asked));
  var here = document.getElementById(window.location.hash.slice(1));
  if (here) here.scrollIntoView();
})();
