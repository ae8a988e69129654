// The search. Without it the page shows everything; the choice of states is made by the style.
"use strict";
(() => {
  const form = document.querySelector(".filter");
  if (!form) return;
  const input = form.querySelector("input[type=search]");
  const output = form.querySelector("output");
  const documents = [...document.querySelectorAll(".document")];
  let texts = null;

  const getState = () => form.querySelector("input[type=radio]:checked").value;

  const update = () => {
    texts = texts || documents.map((element) => element.textContent.toLowerCase());
    const words = input.value.toLowerCase().split(/\s+/).filter(Boolean);
    const state = getState();
    let count = 0;
    documents.forEach((element, index) => {
      const isFound = words.every((word) => texts[index].includes(word));
      element.hidden = !isFound;
      if (isFound && (state === "all" || element.classList.contains(state))) ++count;
    });
    output.textContent = count === documents.length
      ? "" : `${count.toLocaleString("en")} of ${documents.length.toLocaleString("en")} documents`;
  };

  let timer = 0;
  form.addEventListener("input", () => {
    clearTimeout(timer);
    timer = setTimeout(update, documents.length > 500 ? 200 : 0);
  });
  form.addEventListener("submit", (event) => event.preventDefault());
  // A link to a document that is filtered out shows it again.
  addEventListener("hashchange", () => {
    const target = document.getElementById(location.hash.slice(1));
    if (!target || target.offsetParent) return;
    form.reset();
    update();
    target.scrollIntoView();
  });
  form.querySelector(".search").hidden = false;
  update();
})();
