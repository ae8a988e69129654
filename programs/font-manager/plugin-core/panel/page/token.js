// The token comes in the address's fragment, which browsers send to nobody. It is removed from
// there, so that it isn't seen, copied or kept in the history, and kept for a reload of this tab.

const KEY = "panel-token";

// Returns the token, or "" if this page was opened without one.
export function takeToken() {
  const fragment = location.hash.slice(1);
  if (/^[0-9a-f]{64}$/.test(fragment)) {
    sessionStorage.setItem(KEY, fragment);
    history.replaceState(null, "", location.pathname);
  }
  return sessionStorage.getItem(KEY) ?? "";
}
